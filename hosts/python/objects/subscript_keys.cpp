#include "hosts/python/objects/subscript_keys.h"

#include <utility>

#include "hosts/python/dictionaries.h"
#include "hosts/python/errors.h"
#include "hosts/python/objects/labels.h"
#include "hosts/python/python_text.h"
#include "hosts/python/references.h"
#include "hosts/python/values/numpy_values.h"

namespace python_host {

namespace {

template <class Names>
void appendText(PyObject* key, Names& names) {
    if (PyUnicode_CheckExact(key)) {
        names.append(lossyUtf8Of(key));
    }
}

void appendFields(PyObject* fields, UniqueNameList& names) {
    for (Py_ssize_t place = 0; place < PyTuple_GET_SIZE(fields); ++place) {
        appendText(PyTuple_GET_ITEM(fields, place), names);
    }
}

/// No key stands twice in a dictionary.
NameList storedKeysOf(PyObject* dictionary) {
    NameList names;
    eachTextItem(dictionary, [&](PyObject* key, PyObject* /*value*/) { appendText(key, names); });
    return names;
}

}  // namespace

NameList subscriptKeysOf(PyObject* object) {
    checkForInterrupt();
    if (PyDict_Check(object)) {
        return storedKeysOf(object);
    }
    UniqueNameList names;
    if (isLabelled(Py_TYPE(object))) {
        eachLabel(object, [&](PyObject* label) { appendText(label, names); });
    } else if (const Ref fields = numpyFieldsOf(object)) {
        appendFields(fields.get(), names);
    }
    return std::move(names).take();
}

}  // namespace python_host
