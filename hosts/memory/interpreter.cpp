// Calls by name, and the debugger.
#include "host/interpreter.h"

#include "hosts/memory/failure.h"
#include "hosts/memory/value.h"
#include "hosts/memory/world_state.h"

using memory_host::enter;
using memory_host::entersToNull;
using memory_host::HostFailure;
using memory_host::Service;

namespace {

class Bridge final : public IInterpreterBridge {
public:
    bool isDebuggerStopped() override {
        enter(Service::isDebuggerStopped);
        return memory_host::currentWorld().debugger.stopped;
    }

    std::u16string getDebuggerFocus(std::int32_t& position1, std::int32_t& position2) override {
        enter(Service::getDebuggerFocus);
        const memory_host::DebuggerState& debugger = memory_host::currentWorld().debugger;
        position1 = debugger.position1;
        position2 = debugger.position2;
        return debugger.file;
    }
};

}  // namespace

IInterpreterBridge* IInterpreter::GetInterpreterBridge() {
    static Bridge bridge;
    const bool none = entersToNull(Service::getInterpreterBridge);
    return none || !memory_host::currentWorld().hasInterpreter ? nullptr : &bridge;
}

void inCallFcn(int outputCount, qxArray** outputs, int inputCount, const qxArray* const* inputs,
               const char* functionName) {
    const bool answersNull = entersToNull(Service::inCallFcn, std::string_view(functionName));
    const auto& functions = memory_host::currentWorld().functions;
    const auto found = functions.find(std::string_view(functionName));
    if (found == functions.end()) {
        throw HostFailure("undefined function");
    }
    if (outputCount != 1 || inputCount != 1) {
        throw HostFailure("functions here take one value and give one");
    }
    outputs[0] = answersNull ? nullptr : found->second(inputs[0]).release();
}

qxArray* inCallMethodSingleInputSingleOutput(const qxArray* value, const char* methodName) {
    if (entersToNull(Service::inCallMethod, std::string_view(methodName))) {
        return nullptr;
    }
    if (value->cls == nullptr) {
        throw HostFailure("the value has no methods");
    }
    for (const memory_host::Class* cls : value->cls->lineage()) {
        if (const auto found = cls->callableMethods.find(std::string_view(methodName));
            found != cls->callableMethods.end()) {
            return found->second(value).release();
        }
    }
    throw HostFailure("undefined method");
}
