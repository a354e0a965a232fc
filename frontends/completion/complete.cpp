#include "frontends/completion/complete.h"

#include <iterator>
#include <span>
#include <utility>

#include "frontends/completion/arguments.h"
#include "frontends/completion/expression_value.h"
#include "frontends/completion/files.h"
#include "frontends/completion/keys.h"
#include "frontends/completion/module_names.h"
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

/// A chain points into one text from its first name to its last.
bool isTooLong(std::span<const std::u16string_view> chain) {
    return !chain.empty() &&
           static_cast<std::size_t>(&chain.back().back() - &chain.front().front()) >= longestExpression;
}

Items keysFor(const ParsedText& parsed, const Language& language, Workspace& workspace) {
    const qxSharedArray value =
        parsed.expression.empty() ? valueAt(parsed.chain, workspace) : valueOfExpression(parsed.expression);
    return value ? keysOf(value.get(), parsed.quote, language) : Items();
}

Items allItemsFor(const ParsedText& parsed, const Request& request, Workspace& workspace) {
    switch (parsed.wanted) {
        case Wanted::members:
            return membersOf(resolve(parsed.chain, request.file, workspace), request.asker);
        case Wanted::membersOfExpression:
            return membersOf(describe(valueOfExpression(parsed.expression)), request.asker);
        case Wanted::modules:
            return modulesIn(parsed.chain);
        case Wanted::importedNames:
            return namesToImport(parsed.chain);
        case Wanted::keys:
            return keysFor(parsed, request.language, workspace);
        case Wanted::arguments:
            return argumentsOf({parsed.chain, parsed.given, parsed.positions}, request.file, request.language);
        case Wanted::files:
            return filesOf(parsed.fragment, parsed.quote, request.language);
        case Wanted::nothing:
            break;
    }
    return {};
}

}  // namespace

Items itemsFor(const ParsedText& parsed, const Request& request, Workspace& workspace) {
    if (parsed.wanted != Wanted::members && isTooLong(parsed.chain)) {
        return {};
    }
    return onlyPrefixed(allItemsFor(parsed, request, workspace), typedName(parsed));
}

std::u16string_view typedName(const ParsedText& parsed) noexcept {
    return parsed.wanted == Wanted::files ? lastOfPath(parsed.fragment) : parsed.fragment;
}

Completions complete(const Request& request, Workspace& workspace) {
    const ParsedText parsed = parse(request.text, request.cursor);
    Items items = itemsFor(parsed, request, workspace);
    if (parsed.refusal != Refusal::none && items.empty()) {
        return {parsed.refusal, parsed.end, parsed.end, {}};
    }
    return {Refusal::none, parsed.end - typedName(parsed).size(), parsed.end, std::move(items)};
}

}  // namespace contextdata::completion
