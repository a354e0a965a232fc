#include "host/function_metadata.h"

#include <algorithm>

#include "hosts/memory/value_making.h"
#include "hosts/memory/watch.h"
#include "hosts/memory/world_state.h"

std::tuple<qxUniqueArray, qxUniqueArray, FunctionScope*> omGetFunctionMetadata(const std::string& functionName,
                                                                               const FunctionScope* scope) {
    memory_host::enter(memory_host::Service::omGetFunctionMetadata, std::string_view(functionName));
    const auto& known = memory_host::currentWorld().functionMetadata;
    const auto seenFrom = [&](const FunctionScope* place) {
        return std::find_if(known.begin(), known.end(), [&](const memory_host::FunctionMetadata& each) {
            return each.name == functionName && each.scope == place;
        });
    };
    auto found = seenFrom(scope);
    if (found == known.end()) {
        found = seenFrom(nullptr);
    }
    if (found == known.end()) {
        return {nullptr, nullptr, nullptr};
    }
    return {memory_host::sharedClaim(found->first.get()), memory_host::sharedClaim(found->second.get()), found->scope};
}
