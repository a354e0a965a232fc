#include "contextdata/introspection.h"
#include "contextdata/values.h"
#include "host/interpreter.h"

namespace ZELKIntrospection {

namespace {

qxUniqueArray callWithOneOutput(const qxArray* value, const std::string& functionName) {
    qxArray* output = nullptr;
    inCallFcn(1, &output, 1, &value, functionName.c_str());
    return qxUniqueArray(output);
}

}  // namespace

bool callFunctionOnObject(const qxArray* value, const std::string& functionName, std::vector<std::u16string>& names) {
    if (value == nullptr) {
        return false;
    }
    try {
        const qxUniqueArray answer = callWithOneOutput(value, functionName);
        return getStringsFromQxarray(answer.get(), names);
    } catch (...) {
        // The called function is somebody else's code: whatever it raises means that it has no answer.
        return false;
    }
}

}  // namespace ZELKIntrospection
