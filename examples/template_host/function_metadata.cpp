// What functions declare about their arguments: nothing yet.
#include "host/function_metadata.h"

std::tuple<qxUniqueArray, qxUniqueArray, FunctionScope*> omGetFunctionMetadata(const std::string& /*functionName*/,
                                                                               const FunctionScope* /*scope*/) {
    return {nullptr, nullptr, nullptr};
}
