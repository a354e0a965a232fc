#include "hosts/python/debugger/debugger.h"

#include <string>

#include "host/interpreter.h"
#include "hosts/python/dictionaries.h"
#include "hosts/python/errors.h"
#include "hosts/python/keys.h"
#include "hosts/python/objects/instance_attributes.h"
#include "hosts/python/python_host.h"
#include "hosts/python/python_text.h"

namespace python_host {

namespace {

/// Never released by the end of the process: the interpreter is gone by then.
Ref& stoppedDebugger() {
    static Ref& debugger = *new Ref;
    return debugger;
}

std::u16string fileOf(PyFrameObject* frame) {
    const Ref code = Ref::steal(reinterpret_cast<PyObject*>(PyFrame_GetCode(frame)));
    PyObject* name = reinterpret_cast<PyCodeObject*>(code.get())->co_filename;
    return name != nullptr && PyUnicode_Check(name) ? utf16Of(name) : std::u16string();
}

class InterpreterBridge final : public IInterpreterBridge {
public:
    bool isDebuggerStopped() override {
        const PendingErrorGuard pending;
        return static_cast<bool>(focusedFrame());
    }

    /// The first position is the line; Python keeps no second.
    std::u16string getDebuggerFocus(std::int32_t& position1, std::int32_t& position2) override {
        const PendingErrorGuard pending;
        const Ref frame = focusedFrame();
        if (!frame) {
            return {};
        }
        auto* object = reinterpret_cast<PyFrameObject*>(frame.get());
        position1 = PyFrame_GetLineNumber(object);
        position2 = 0;
        return fileOf(object);
    }
};

/// What the debugger itself keeps under a name.
Ref heldByDebugger(PyObject* name) {
    const Ref debugger = stoppedDebugger();
    return Ref::share(debugger ? findItem(instanceDictionary(debugger.get()), name) : nullptr);
}

}  // namespace

Ref focusedFrame() {
    Ref frame = heldByDebugger(keys().curframe);
    return frame && PyFrame_Check(frame.get()) ? frame : Ref();
}

Ref focusedVariables() { return heldByDebugger(keys().curframeLocals); }

void setStoppedDebugger(PyObject* debugger) noexcept {
    const PendingErrorGuard pending;
    stoppedDebugger() = Ref::share(debugger);
}

}  // namespace python_host

IInterpreterBridge* IInterpreter::GetInterpreterBridge() {
    static python_host::InterpreterBridge bridge;
    return &bridge;
}
