#include "hosts/python/annotations/annotation_scope.h"

#include "hosts/python/annotations/annotation_enumerations.h"
#include "hosts/python/dictionaries.h"
#include "hosts/python/folders/live_paths.h"
#include "hosts/python/keys.h"
#include "hosts/python/namespaces/live_modules.h"
#include "hosts/python/python_text.h"

namespace python_host {

namespace {

PyObject* moduleDictionary(PyObject* module) { return module == nullptr ? nullptr : PyModule_GetDict(module); }

PyObject* globalsOfClass(PyTypeObject* type) {
    PyObject* name = findItem(type->tp_dict, keys().module);
    const bool isName = name != nullptr && PyUnicode_CheckExact(name);
    return isName ? moduleDictionary(findLoadedModule(name)) : nullptr;
}

/// The members of an enumeration stand behind descriptors in its own dictionary.
Ref partOf(PyObject* container, std::string_view name) {
    if (PyType_Check(container)) {
        const Ref key = Ref::steal(makeText(name));
        if (Ref member = key ? enumerationMember(asType(container), key.get()) : Ref()) {
            return member;
        }
    }
    return Ref::share(memberOf(container, name));
}

}  // namespace

AnnotationScope::AnnotationScope(PyTypeObject* declarer) : AnnotationScope(declarer, globalsOfClass(declarer)) {}

AnnotationScope::AnnotationScope(PyTypeObject* declarer, PyObject* globals)
    : declarer_(Ref::share(declarer)), globals_(Ref::share(globals)) {}

Ref AnnotationScope::findFirst(std::string_view name) const {
    const Ref key = Ref::steal(makeText(name));
    if (!key) {
        return {};
    }
    // A class's other names are its members, which are not what annotations speak of.
    PyObject* inner = findItem(asType(declarer_.get())->tp_dict, key.get());
    if (inner != nullptr && PyType_Check(inner)) {
        return Ref::share(inner);
    }
    if (PyObject* global = findItem(globals_.get(), key.get())) {
        return Ref::share(global);
    }
    return Ref::share(findInModule("builtins", key.get()));
}

Ref AnnotationScope::find(std::string_view dotted) const {
    SplitName split = splitFirst(dotted);
    Ref found = findFirst(split.first);
    while (found && !split.rest.empty()) {
        split = splitFirst(split.rest);
        found = partOf(found.get(), split.first);
    }
    return found;
}

}  // namespace python_host
