// The interpreter: there is none yet, so nothing is evaluated, no variable is known and every call fails.
#include "host/interpreter.h"

#include "failure.h"
#include "host/error_mode.h"
#include "host/evaluation.h"
#include "host/feature.h"
#include "host/function_metadata.h"

IInterpreterBridge* IInterpreter::GetInterpreterBridge() { return nullptr; }

bool inValidInterpreterAvailable() { return false; }
inExecutionStatus inEvalExp(const std::u16string& /*expression*/, int /*outputCount*/, qxArray** /*outputs*/,
                            bool /*flag*/, inEvaluationSource /*source*/) {
    return static_cast<inExecutionStatus>(1);
}
qxSharedArray inGetValueFromCurrentWorkspace(const std::string& /*name*/) { return {}; }

// The library asks for "methods", "properties" and "fieldnames" of one value: the first functions to have.
void inCallFcn(int /*outputCount*/, qxArray** /*outputs*/, int /*inputCount*/, const qxArray* const* /*inputs*/,
               const char* functionName) {
    template_host::missing(functionName);
}
void inFullFevalFcn(int /*outputCount*/, qxArray** /*outputs*/, int /*inputCount*/, const qxArray* const* /*inputs*/) {
    template_host::missing("any function");
}
int inCallFcnWithTrap(int /*outputCount*/, qxArray** /*outputs*/, int /*inputCount*/, const qxArray* const* /*inputs*/,
                      const char* functionName, bool trap) {
    if (!trap) {
        template_host::missing(functionName);
    }
    return 1;
}
qxArray* inCallMethodSingleInputSingleOutput(const qxArray* /*value*/, const char* methodName) {
    template_host::missing(methodName);
}

std::tuple<qxUniqueArray, qxUniqueArray, FunctionScope*> omGetFunctionMetadata(const std::string& /*functionName*/,
                                                                               const FunctionScope* /*scope*/) {
    return {nullptr, nullptr, nullptr};
}

// Whether class names mean what the file that mentions them says. On, once `omResolveAnyClass` knows scopes.
bool ComponentFeature::IsOn() { return false; }

// What becomes of errors that your array library meets. Until there are any, it is enough to remember.
namespace {
qxErrorMode errorMode{};
}
qxErrorMode getErrorMode() { return errorMode; }
void setErrorMode(qxErrorMode mode) noexcept { errorMode = mode; }
