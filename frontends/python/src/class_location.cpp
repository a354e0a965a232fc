#include "frontends/python/src/class_location.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "frontends/python/src/new_objects.h"
#include "frontends/python/src/python_text.h"
#include "frontends/python/src/variables.h"
#include "hosts/python/python_host.h"

namespace contextdata::python {

namespace {

pybind11::object orNone(PyObject* text) {
    return text != nullptr && PyUnicode_CheckExact(text) ? pybind11::reinterpret_borrow<pybind11::object>(text)
                                                         : pybind11::none();
}

/// Null when somebody put another thing than a module there.
PyObject* loadedModule(std::u16string_view name) {
    PyObject* modules = python_host::loadedModules();
    PyObject* module = modules == nullptr ? nullptr : findName(modules, name);
    return module != nullptr && PyModule_Check(module) ? module : nullptr;
}

/// Classes made in C keep the module in front of their name.
pybind11::object moduleOfBuiltIn(const PyTypeObject* type) {
    const std::string_view name = type->tp_name;
    const std::size_t dot = name.rfind('.');
    return dot == std::string_view::npos
               ? strOfAscii("builtins")
               : orThrow(PyUnicode_FromStringAndSize(name.data(), static_cast<Py_ssize_t>(dot)));
}

pybind11::object moduleNameOf(PyTypeObject* type) {
    const bool isMadeInPython = (type->tp_flags & Py_TPFLAGS_HEAPTYPE) != 0;
    return isMadeInPython ? orNone(findName(type->tp_dict, u"__module__")) : moduleOfBuiltIn(type);
}

/// What a dotted path leads to from a module through classes; null when it leads nowhere.
PyObject* follow(PyObject* module, std::u16string_view path) {
    PyObject* found = module;
    while (!path.empty()) {
        const std::u16string_view name = path.substr(0, path.find(u'.'));
        path.remove_prefix(std::min(path.size(), name.size() + 1));
        const bool isClass = PyType_Check(found) != 0;
        if (!isClass && !PyModule_Check(found)) {
            return nullptr;
        }
        found = findName(isClass ? reinterpret_cast<PyTypeObject*>(found)->tp_dict : PyModule_GetDict(found), name);
        if (found == nullptr) {
            return nullptr;
        }
    }
    return found;
}

}  // namespace

ClassLocation locationOf(PyTypeObject* type) {
    ClassLocation location{moduleNameOf(type), pybind11::none()};
    if (!location.module.is_none()) {
        PyObject* name = location.module.ptr();
        PyObject* module = loadedModule(utf16Of(name, PyUnicode_GET_LENGTH(name)));
        location.file = module == nullptr ? pybind11::none() : orNone(findName(PyModule_GetDict(module), u"__file__"));
    }
    return location;
}

PyTypeObject* typeNamed(const ZELKContextData::ResolvedClassID& id) {
    const std::u16string name = id.getNonComponentQualifiedName();
    for (std::size_t dot = name.rfind(u'.'); dot != std::u16string::npos && dot > 0; dot = name.rfind(u'.', dot - 1)) {
        const std::u16string_view whole = name;
        PyObject* module = loadedModule(whole.substr(0, dot));
        PyObject* found = module == nullptr ? nullptr : follow(module, whole.substr(dot + 1));
        if (found != nullptr && PyType_Check(found) &&
            python_host::classIdOf(reinterpret_cast<PyTypeObject*>(found)) == id.get()) {
            return reinterpret_cast<PyTypeObject*>(found);
        }
    }
    return nullptr;
}

}  // namespace contextdata::python
