#include "hosts/python/resolution/scopes.h"

#include "hosts/python/dictionaries.h"
#include "hosts/python/folders/live_paths.h"
#include "hosts/python/python_text.h"

namespace python_host {

namespace {

PyObject* findGlobal(PyObject* globals, std::string_view name) {
    const Ref key = Ref::steal(makeText(name));
    return key ? findItem(globals, key.get()) : nullptr;
}

Ref resolveFrom(PyObject* globals, std::string_view dotted) {
    const SplitName split = splitFirst(dotted);
    PyObject* start = findGlobal(globals, split.first);
    return Ref::share(start == nullptr ? nullptr : walkPath(start, split.rest));
}

}  // namespace

bool GlobalsScope::binds(std::string_view name) const { return findGlobal(globals_.get(), name) != nullptr; }

Ref GlobalsScope::resolve(std::string_view dotted) const { return resolveFrom(globals_.get(), dotted); }

PyObject* ModuleScope::module() const noexcept {
    PyObject* object = PyWeakref_GET_OBJECT(weakModule_.get());
    return object != Py_None && PyModule_Check(object) ? object : nullptr;
}

bool ModuleScope::binds(std::string_view name) const {
    PyObject* live = module();
    return live != nullptr && findGlobal(PyModule_GetDict(live), name) != nullptr;
}

Ref ModuleScope::resolve(std::string_view dotted) const {
    PyObject* live = module();
    return live == nullptr ? Ref() : resolveFrom(PyModule_GetDict(live), dotted);
}

}  // namespace python_host
