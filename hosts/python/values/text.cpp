// Values that hold one text.
#include "host/text.h"

#include "host/i18n.h"
#include "hosts/python/python_text.h"
#include "hosts/python/values/callables.h"
#include "hosts/python/values/values.h"

namespace {

/// A str, or a text scalar of the array package; a user's subclass of str is an object of its own.
bool isTextObject(PyObject* object) {
    return object != nullptr && (PyUnicode_CheckExact(object) ||
                                 (PyUnicode_Check(object) && python_host::isNamedType(Py_TYPE(object), "numpy.str_")));
}

}  // namespace

bool isNonMissingScalarText(const qxArray* value) { return value->isText() || isTextObject(value->object()); }

std::u16string getScalarText(const qxArray* value) {
    if (value->isText()) {
        return fl::i18n::to_ustring(value->text());
    }
    if (isTextObject(value->object())) {
        return python_host::utf16Of(value->object());
    }
    throw TextException(value->object() == Py_None ? "MissingNotSupported" : "MustBeStringScalarOrCharacterVector");
}
