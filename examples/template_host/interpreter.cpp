// The interpreter: there is none yet, so nothing is evaluated, no variable is known and every call fails.
#include "host/interpreter.h"

#include "failure.h"
#include "host/evaluation.h"

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
