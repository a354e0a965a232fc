#include "host/name_resolution.h"

#include "hosts/python/classes/class_registry.h"
#include "hosts/python/errors.h"
#include "hosts/python/folders/live_paths.h"
#include "hosts/python/interning.h"
#include "hosts/python/namespaces/live_modules.h"
#include "hosts/python/resolution/scopes.h"

namespace python_host {

namespace {

std::string classNameOf(PyObject* object) {
    if (object == nullptr || !PyType_Check(object)) {
        return {};
    }
    return ClassRegistry::instance().objectOf(asType(object)).getName();
}

/// What the names mean at the prompt.
GlobalsScope promptScope() {
    PyObject* main = findLoadedModule("__main__");
    return GlobalsScope(Ref::share(main == nullptr ? nullptr : PyModule_GetDict(main)));
}

/// The built-in of that name, else the class of that full name.
std::string resolveOutside(const std::string& name) {
    PyObject* builtins = findLoadedModule("builtins");
    std::string builtIn = classNameOf(builtins == nullptr ? nullptr : walkPath(builtins, name));
    if (!builtIn.empty()) {
        return builtIn;
    }
    const ClassObject* cls = ClassRegistry::instance().find(internName(name));
    return cls == nullptr ? std::string() : cls->getName();
}

std::string resolveIn(const FunctionScope& scope, const std::string& name) {
    const Ref object = scope.resolve(name);
    std::string found = classNameOf(object.get());
    if (!found.empty()) {
        return found;
    }
    // A variable hides the built-in of its name; the longer full name of a class it does not.
    const bool isHidden = name.find('.') == std::string::npos && scope.binds(name);
    return isHidden ? std::string() : resolveOutside(name);
}

}  // namespace

}  // namespace python_host

std::string zelk::nameresolution::omResolveAnyClass(const std::string& name, const FunctionScope* scope) {
    const python_host::PendingErrorGuard pending;
    return scope == nullptr ? python_host::resolveIn(python_host::promptScope(), name)
                            : python_host::resolveIn(*scope, name);
}
