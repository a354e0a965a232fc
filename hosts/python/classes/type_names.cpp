#include "hosts/python/classes/type_names.h"

#include <algorithm>
#include <string_view>

#include "hosts/python/dictionaries.h"
#include "hosts/python/folders/live_paths.h"
#include "hosts/python/keys.h"
#include "hosts/python/namespaces/live_modules.h"
#include "hosts/python/python_text.h"

namespace python_host {

namespace {

bool isMadeInPython(const PyTypeObject* type) noexcept { return (type->tp_flags & Py_TPFLAGS_HEAPTYPE) != 0; }

PyObject* qualifiedNameOf(const PyTypeObject* type) noexcept {
    return reinterpret_cast<const PyHeapTypeObject*>(type)->ht_qualname;
}

/// A type that is compiled in bears its module in its name; one without is of the builtins.
struct CompiledName {
    std::string_view module;
    std::string_view name;
};

CompiledName compiledNameOf(const PyTypeObject* type) {
    const std::string_view full = type->tp_name;
    const std::size_t dot = full.rfind('.');
    if (dot == std::string_view::npos) {
        return {"builtins", full};
    }
    return {full.substr(0, dot), full.substr(dot + 1)};
}

}  // namespace

// Each witness is alive if the one before is unchanged: the type keeps its own dictionary, the interpreter that of the
// modules until it ends, and every other one is found through its predecessor.
bool TypeName::holdsFor(const PyTypeObject* type) const noexcept {
    if (!qualified_ || _Py_IsFinalizing() != 0 || (isMadeInPython(type) && qualifiedNameOf(type) != qualified_.get())) {
        return false;
    }
    return std::all_of(witnesses_.begin(), witnesses_.end(),
                       [](const Witness& witness) { return versionOf(witness.dictionary) == witness.version; });
}

void TypeName::read(PyTypeObject* type) {
    readParts(type);
    witnesses_.clear();
    if (isMadeInPython(type)) {
        rely(type->tp_dict);
    }
    reachable_ = leadsTo(type);
}

void TypeName::readParts(PyTypeObject* type) {
    if (isMadeInPython(type)) {
        PyObject* module = findItem(type->tp_dict, keys().module);
        module_ = Ref::share(module != nullptr && PyUnicode_CheckExact(module) ? module : nullptr);
        qualified_ = Ref::share(qualifiedNameOf(type));
    } else {
        const CompiledName name = compiledNameOf(type);
        module_ = Ref::steal(makeText(name.module));
        qualified_ = Ref::steal(makeText(name.name));
    }
    parts_.clear();
    const std::string text = lossyUtf8Of(qualified_.get());
    for (SplitName split = splitFirst(text); !split.first.empty(); split = splitFirst(split.rest)) {
        parts_.push_back(Ref::steal(makeText(split.first)));
    }
}

bool TypeName::leadsTo(PyTypeObject* type) {
    rely(loadedModules());
    PyObject* module = module_ ? findLoadedModule(module_.get()) : nullptr;
    PyObject* container = module == nullptr ? nullptr : PyModule_GetDict(module);
    PyObject* found = nullptr;
    for (const Ref& part : parts_) {
        rely(container);
        found = part ? findItem(container, part.get()) : nullptr;
        if (found == nullptr || !PyType_Check(found)) {
            return false;
        }
        container = asType(found)->tp_dict;
    }
    return found == asObject(type);
}

void TypeName::rely(PyObject* dictionary) {
    if (dictionary != nullptr) {
        witnesses_.push_back({dictionary, versionOf(dictionary)});
    }
}

std::string TypeName::full() const {
    const std::string name = lossyUtf8Of(qualified_.get());
    return module_ ? lossyUtf8Of(module_.get()) + '.' + name : name;
}

bool TypeName::isUnderscored() const {
    const std::string name = lossyUtf8Of(qualified_.get());
    return startsWithUnderscore(std::string_view(name).substr(name.rfind('.') + 1));
}

}  // namespace python_host
