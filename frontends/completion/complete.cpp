#include "frontends/completion/complete.h"

#include <iterator>

#include "frontends/completion/value_members.h"

namespace contextdata::completion {

namespace {

Items onlyPrefixed(Items items, std::u16string_view prefix) {
    if (prefix.empty()) {
        return items;
    }
    const auto [first, last] = rangeOfPrefix(items, prefix);
    const auto begin = std::make_move_iterator(items.begin());
    return {begin + static_cast<std::ptrdiff_t>(first), begin + static_cast<std::ptrdiff_t>(last)};
}

}  // namespace

Completions complete(const Request& request, Workspace& workspace) {
    const ParsedText parsed = parse(request.text, request.cursor);
    Completions completions{parsed.refusal, parsed.start, parsed.end, {}};
    if (parsed.refusal != Refusal::none) {
        return completions;
    }
    const Subject subject = resolve(parsed.chain, request.file, workspace);
    completions.items = onlyPrefixed(membersOf(subject, request.asker), parsed.fragment);
    return completions;
}

}  // namespace contextdata::completion
