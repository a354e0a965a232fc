#include "hosts/python/builtins.h"

#include <Python.h>

#include "hosts/python/dictionaries.h"
#include "hosts/python/keys.h"
#include "hosts/python/namespaces/live_modules.h"
#include "hosts/python/python_text.h"
#include "hosts/python/values/callables.h"

namespace python_host {

namespace {

bool isText(PyObject* documentation) {
    return documentation != nullptr && PyUnicode_Check(documentation) && PyUnicode_GET_LENGTH(documentation) > 0;
}

bool isText(const char* documentation) { return documentation != nullptr && *documentation != '\0'; }

bool isDocumentedType(const PyTypeObject* type) {
    return isText(findItem(type->tp_dict, keys().doc)) || isText(type->tp_doc);
}

/// The documentation where each kind of object keeps it; asking for the attribute might run code.
bool isDocumented(PyObject* object) {
    if (PyType_Check(object)) {
        return isDocumentedType(reinterpret_cast<PyTypeObject*>(object));
    }
    if (PyCFunction_Check(object)) {
        return isText(reinterpret_cast<PyCFunctionObject*>(object)->m_ml->ml_doc);
    }
    return PyFunction_Check(object) && isText(reinterpret_cast<PyFunctionObject*>(object)->func_doc);
}

}  // namespace

std::vector<std::u16string> documentedBuiltins() {
    std::vector<std::u16string> names;
    PyObject* builtins = findLoadedModule("builtins");
    if (builtins == nullptr) {
        return names;
    }
    eachTextItem(PyModule_GetDict(builtins), [&](PyObject* key, PyObject* value) {
        if (isDocumented(value)) {
            names.push_back(utf16Of(key));
        }
    });
    return names;
}

}  // namespace python_host
