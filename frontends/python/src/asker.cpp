#include "frontends/python/src/asker.h"

#include <string_view>

#include "frontends/completion/ask.h"
#include "frontends/completion/subject.h"
#include "frontends/python/src/errors.h"
#include "frontends/python/src/python_text.h"
#include "hosts/python/python_host.h"

namespace contextdata::python {

using ZELKContextData::ResolvedClassID;

namespace {

ResolvedClassID classNamed(PyObject* text) {
    const std::u16string name = utf16Of(text, PyUnicode_GET_LENGTH(text));
    const std::u16string_view whole = name;
    const ResolvedClassID cls = completion::named({&whole, 1}, {}).cls;
    if (cls.isNull()) {
        // The text anew: a subclass of str would be asked for its own idea of itself.
        PyErr_Format(PyExc_ValueError,
                     "there is no class %R to be inside of; import its module and write both, as in 'decimal.Decimal'",
                     strOf(name).ptr());
        throwRaised();
    }
    return cls;
}

}  // namespace

Asker askerNamed(PyObject* inside) {
    if (PyType_Check(inside)) {
        const auto id = python_host::classIdOf(reinterpret_cast<PyTypeObject*>(inside));
        return {ResolvedClassID::fromKnownResolvedClassID(id), true};
    }
    if (!PyUnicode_Check(inside)) {
        PyErr_Format(PyExc_TypeError, "inside must be a class or the name of one, not %s", Py_TYPE(inside)->tp_name);
        throwRaised();
    }
    return {classNamed(inside), true};
}

Asker askerInFocus() {
    const auto id = completion::unlessItFails([] { return python_host::classInFocus(); });
    return {ResolvedClassID::fromKnownResolvedClassID(id), false};
}

}  // namespace contextdata::python
