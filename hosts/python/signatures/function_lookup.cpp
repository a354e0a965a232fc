#include "hosts/python/signatures/function_lookup.h"

#include <algorithm>
#include <initializer_list>

#include "hosts/python/classes/resolution_order.h"
#include "hosts/python/evaluation/workspace.h"
#include "hosts/python/folders/live_paths.h"
#include "hosts/python/namespaces/live_modules.h"
#include "hosts/python/objects/property_access.h"
#include "hosts/python/python_text.h"

namespace python_host {

namespace {

Ref findBuiltIn(PyObject* name) { return Ref::share(findInModule("builtins", name)); }

Ref findFirst(std::string_view name, const FunctionScope* scope) {
    const Ref key = Ref::steal(makeText(name));
    if (!key) {
        return {};
    }
    Ref found = scope == nullptr ? Workspace::current().find(key.get()) : scope->resolve(name);
    if (found) {
        return found;
    }
    const bool isHidden = scope != nullptr && scope->binds(name);
    return isHidden ? Ref() : findBuiltIn(key.get());
}

/// A method of the object's class that is not bound to the object.
Ref findUnboundMethod(PyTypeObject* type, PyObject* name) {
    PyObject* entry = findInOrder(type, name).value;
    const std::initializer_list<PyTypeObject*> kinds = {&PyStaticMethod_Type, &PyClassMethod_Type,
                                                        &PyClassMethodDescr_Type};
    const bool isMethod = entry != nullptr && std::find(kinds.begin(), kinds.end(), Py_TYPE(entry)) != kinds.end();
    return isMethod ? Ref::share(entry) : Ref();
}

Ref findMember(PyObject* object, std::string_view name) {
    if (PyModule_Check(object) || PyType_Check(object)) {
        return Ref::share(memberOf(object, name));
    }
    const Ref key = Ref::steal(makeText(name));
    if (!key) {
        return {};
    }
    Ref value = readAttribute(object, key.get(), AttributeReach::knownGetters);
    return value ? value : findUnboundMethod(Py_TYPE(object), key.get());
}

}  // namespace

Ref findFunction(std::string_view dotted, const FunctionScope* scope) {
    SplitName split = splitFirst(dotted);
    Ref object = findFirst(split.first, scope);
    while (object && !split.rest.empty()) {
        split = splitFirst(split.rest);
        object = findMember(object.get(), split.first);
    }
    // A name that ends with a dot is still being typed.
    return dotted.ends_with('.') ? Ref() : object;
}

}  // namespace python_host
