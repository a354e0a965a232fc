#include "frontends/completion/arguments.h"

#include <algorithm>
#include <unordered_set>
#include <vector>

#include "contextdata/argument_block_metadata.h"
#include "contextdata/values.h"
#include "frontends/completion/ask.h"
#include "frontends/completion/subject.h"

namespace contextdata::completion {

namespace {

using Names = std::vector<std::u16string>;

struct Parameters {
    Names byPosition;
    Names byName;
};

Names textsOf(const qxUniqueArray& cell) {
    Names names;
    getStringsFromQxarray(cell.get(), names);
    return names;
}

Parameters parametersOf(const std::u16string& callee, const std::u16string& contextFile) {
    return unlessItFails([&] {
        const auto metadata = ZELKContextData::getArgumentBlockMetadata(contextFile, callee);
        return Parameters{textsOf(metadata.first), textsOf(metadata.second)};
    });
}

}  // namespace

Items argumentsOf(const CallSoFar& call, const std::u16string& contextFile, const Language& language) {
    const Parameters parameters = parametersOf(dotted(call.callee), contextFile);
    std::unordered_set<std::u16string_view> given(call.given.begin(), call.given.end());
    const std::size_t positions = std::min(call.positions, parameters.byPosition.size());
    for (std::size_t position = 0; position < positions; ++position) {
        given.insert(parameters.byPosition[position]);
    }
    std::vector<Item> items;
    for (const std::u16string& name : parameters.byName) {
        if (!given.contains(name)) {
            items.push_back({name, Kind::argument});
            items.back().name += language.argumentMark;
        }
    }
    return sortedOnce(std::move(items));
}

}  // namespace contextdata::completion
