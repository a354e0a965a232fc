#include "hosts/python/evaluation/workspace.h"

#include <string>

#include "host/evaluation.h"
#include "hosts/python/debugger/debugger.h"
#include "hosts/python/dictionaries.h"
#include "hosts/python/errors.h"
#include "hosts/python/namespaces/live_modules.h"
#include "hosts/python/python_host.h"
#include "hosts/python/python_text.h"

namespace python_host {

namespace {

const CurrentWorkspace*& innermost() noexcept {
    thread_local const CurrentWorkspace* workspace = nullptr;
    return workspace;
}

Workspace ofFrame(PyObject* frame) {
    return {focusedVariables(), Ref::steal(PyFrame_GetGlobals(reinterpret_cast<PyFrameObject*>(frame)))};
}

Workspace ofMainModule() {
    PyObject* module = findLoadedModule("__main__");
    return {Ref::share(module == nullptr ? nullptr : PyModule_GetDict(module)), Ref()};
}

}  // namespace

CurrentWorkspace::CurrentWorkspace(PyObject* locals, PyObject* globals) noexcept
    : locals_(Ref::share(locals).release()), globals_(Ref::share(globals).release()), outer_(innermost()) {
    innermost() = this;
}

CurrentWorkspace::CurrentWorkspace() : outer_(innermost()) {
    Workspace now = Workspace::current();
    locals_ = now.locals.release();
    globals_ = now.globals.release();
    innermost() = this;
}

CurrentWorkspace::~CurrentWorkspace() {
    innermost() = outer_;
    Py_XDECREF(locals_);
    Py_XDECREF(globals_);
}

Workspace Workspace::current() {
    if (const CurrentWorkspace* named = innermost()) {
        return {Ref::share(named->locals()), Ref::share(named->globals())};
    }
    const Ref frame = focusedFrame();
    return frame ? ofFrame(frame.get()) : ofMainModule();
}

Ref Workspace::find(PyObject* name) const {
    PyObject* found = findItem(locals.get(), name);
    return Ref::share(found != nullptr ? found : findItem(globals.get(), name));
}

}  // namespace python_host

qxSharedArray inGetValueFromCurrentWorkspace(const std::string& name) {
    const python_host::PendingErrorGuard pending;
    const python_host::Ref key = python_host::Ref::steal(name.empty() ? nullptr : python_host::makeText(name));
    if (!key) {
        return {};
    }
    const python_host::Ref value = python_host::Workspace::current().find(key.get());
    constexpr bool addsReference = false;
    return value ? qxSharedArray(python_host::wrap(value.get()).release(), addsReference) : qxSharedArray();
}

bool inValidInterpreterAvailable() {
    return Py_IsInitialized() != 0 && _Py_IsFinalizing() == 0 && PyGILState_Check() != 0;
}
