#include "hosts/python/folders/live_paths.h"

#include "hosts/python/classes/resolution_order.h"
#include "hosts/python/dictionaries.h"
#include "hosts/python/namespaces/live_modules.h"
#include "hosts/python/python_text.h"

namespace python_host {

namespace {

PyObject* submoduleOf(PyObject* module, std::string_view name) {
    std::string full = loadedName(module);
    if (full.empty()) {
        return nullptr;
    }
    full += '.';
    full += name;
    return findLoadedModule(full);
}

PyObject* memberOfModule(PyObject* module, std::string_view name) {
    const Ref key = Ref::steal(makeText(name));
    if (!key) {
        return nullptr;
    }
    PyObject* bound = findItem(PyModule_GetDict(module), key.get());
    return bound != nullptr ? bound : submoduleOf(module, name);
}

PyObject* memberOfType(PyTypeObject* type, std::string_view name) {
    const Ref key = Ref::steal(makeText(name));
    return key ? findInOrder(type, key.get()).value : nullptr;
}

}  // namespace

SplitName splitFirst(std::string_view dotted) noexcept {
    const std::size_t dot = dotted.find('.');
    if (dot == std::string_view::npos) {
        return {dotted, {}};
    }
    return {dotted.substr(0, dot), dotted.substr(dot + 1)};
}

PyObject* memberOf(PyObject* container, std::string_view name) {
    if (name.empty()) {
        return nullptr;
    }
    if (PyModule_Check(container)) {
        return memberOfModule(container, name);
    }
    return PyType_Check(container) ? memberOfType(asType(container), name) : nullptr;
}

PyObject* walkPath(PyObject* start, std::string_view dotted) {
    PyObject* object = start;
    while (object != nullptr && !dotted.empty()) {
        if (dotted.ends_with('.')) {
            return nullptr;
        }
        const SplitName split = splitFirst(dotted);
        object = memberOf(object, split.first);
        dotted = split.rest;
    }
    return object;
}

PyObject* findPath(std::string_view dotted) {
    if (dotted.empty() || dotted.ends_with('.')) {
        return nullptr;
    }
    std::size_t end = dotted.size();
    while (true) {
        if (PyObject* module = findLoadedModule(dotted.substr(0, end))) {
            return end == dotted.size() ? module : walkPath(module, dotted.substr(end + 1));
        }
        end = dotted.rfind('.', end - 1);
        if (end == std::string_view::npos || end == 0) {
            return nullptr;
        }
    }
}

}  // namespace python_host
