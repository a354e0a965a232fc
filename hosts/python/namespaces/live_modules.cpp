#include "hosts/python/namespaces/live_modules.h"

#include <optional>
#include <string>

#include "hosts/python/dictionaries.h"
#include "hosts/python/keys.h"
#include "hosts/python/python_text.h"

namespace python_host {

namespace {

PyObject* orNullIfNoModule(PyObject* entry) noexcept {
    return entry != nullptr && PyModule_Check(entry) ? entry : nullptr;
}

std::string searchLoadedName(PyObject* module) {
    std::string name;
    eachTextItem(loadedModules(), [&](PyObject* key, PyObject* value) {
        if (value == module && name.empty()) {
            name = lossyUtf8Of(key);
        }
    });
    return name;
}

}  // namespace

PyObject* loadedModules() noexcept {
    // Near its end the interpreter gives its table up, and dies when it is asked for it.
    PyObject* modules = _Py_IsFinalizing() == 0 ? PyImport_GetModuleDict() : findItem(keys().system, keys().modules);
    return modules != nullptr && PyDict_Check(modules) ? modules : nullptr;
}

PyObject* findLoadedModule(PyObject* name) noexcept { return orNullIfNoModule(findItem(loadedModules(), name)); }

PyObject* findLoadedModule(std::string_view name) noexcept {
    const Ref text = Ref::steal(makeText(name));
    return text ? findLoadedModule(text.get()) : nullptr;
}

PyObject* findInModule(std::string_view module, PyObject* name) noexcept {
    PyObject* found = findLoadedModule(module);
    return found == nullptr ? nullptr : findItem(PyModule_GetDict(found), name);
}

PyObject* findInModule(PyObject* module, PyObject* name) noexcept {
    PyObject* found = findLoadedModule(module);
    return found == nullptr ? nullptr : findItem(PyModule_GetDict(found), name);
}

std::string loadedName(PyObject* module) {
    PyObject* name = findItem(PyModule_GetDict(module), keys().moduleName);
    if (name != nullptr && PyUnicode_CheckExact(name) && findLoadedModule(name) == module) {
        return lossyUtf8Of(name);
    }
    return searchLoadedName(module);
}

}  // namespace python_host
