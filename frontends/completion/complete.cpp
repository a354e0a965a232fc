#include "frontends/completion/complete.h"

#include <algorithm>
#include <iterator>
#include <span>
#include <utility>

#include "frontends/completion/arguments.h"
#include "frontends/completion/ask.h"
#include "frontends/completion/expression_value.h"
#include "frontends/completion/files.h"
#include "frontends/completion/keys.h"
#include "frontends/completion/module_names.h"
#include "frontends/completion/ranking.h"
#include "frontends/completion/reason.h"
#include "frontends/completion/value_members.h"

namespace contextdata::completion {

namespace {

/// The value that the members or keys are of, if it is no plain chain of names.
qxSharedArray valueOf(const ParsedText& parsed, const Request& request) {
    const bool isRefused = parsed.runsCode && !request.rules.runsCode;
    return isRefused ? qxSharedArray() : valueOfExpression(parsed.expression, request.rules);
}

qxSharedArray rootOf(const ParsedText& parsed, Workspace& workspace) {
    return unlessItFails([&] { return workspace.find(std::u16string(parsed.chain.front())); });
}

Subject subjectOf(const ParsedText& parsed, const Request& request, Workspace& workspace) {
    const qxSharedArray root = rootOf(parsed, workspace);
    return root ? describe(valueAtEnd(root, parsed.chain, request.rules)) : named(parsed.chain, request.file);
}

Items argumentsFor(const ParsedText& parsed, const Request& request) {
    return argumentsOf({parsed.chain, parsed.given, parsed.positions}, request.file, request.language);
}

Items namesOf(const Request& request) { return {request.names.begin(), request.names.end()}; }

Items allItemsFor(const ParsedText& parsed, const Request& request, Workspace& workspace) {
    switch (parsed.wanted) {
        case Wanted::members:
            return membersOf(subjectOf(parsed, request, workspace), request.asker);
        case Wanted::membersOfExpression:
            return membersOf(describe(valueOf(parsed, request)), request.asker);
        case Wanted::names:
            return namesOf(request);
        case Wanted::modules:
            return modulesIn(parsed.chain);
        case Wanted::importedNames:
            return namesToImport(parsed.chain);
        case Wanted::arguments:
            return argumentsFor(parsed, request);
        case Wanted::keys:
        case Wanted::wholeKeys:
        case Wanted::files:
        case Wanted::nothing:
            break;
    }
    return {};
}

/// Where an argument was begun, it may be a name as well. Rank puts both in one order, else the names come behind.
Items withNames(Items arguments, const ParsedText& parsed, const Request& request) {
    const Choice choice{parsed.fragment, request.isRanked};
    Items names = parsed.fragment.empty() ? Items() : namesOf(request);
    if (!request.isRanked) {
        arguments = chosen(std::move(arguments), choice);
        names = chosen(std::move(names), choice);
    }
    std::move(names.begin(), names.end(), std::back_inserter(arguments));
    return request.isRanked ? chosen(std::move(arguments), choice) : arguments;
}

void limit(Completions& answer, std::size_t most) {
    if (answer.items.size() > most) {
        answer.leftOut = answer.items.size() - most;
        answer.items.resize(most);
    }
}

}  // namespace

qxSharedArray keyedValueOf(const ParsedText& parsed, const Request& request, Workspace& workspace) {
    if (!parsed.expression.empty()) {
        return valueOf(parsed, request);
    }
    const qxSharedArray root = isTooLong(parsed.chain) ? qxSharedArray() : rootOf(parsed, workspace);
    return root ? valueAtEnd(root, parsed.chain, request.rules) : qxSharedArray();
}

Items keysFor(const ParsedText& parsed, const Request& request, const qxSharedArray& value) {
    const Choice choice{typedName(parsed), request.isRanked};
    Items keys = parsed.wanted == Wanted::keys
                     ? keysOf(value.get(), parsed.quote, request.language, choice)
                     : wholeKeysOf(value.get(), quoteOfKey(parsed.wholeKey), request.language);
    return chosen(std::move(keys), choice);
}

Items itemsFor(const ParsedText& parsed, const Request& request, Workspace& workspace) {
    if (parsed.wanted != Wanted::members && isTooLong(parsed.chain)) {
        return {};
    }
    if (parsed.wanted == Wanted::files) {
        return filesOf(parsed.fragment, parsed.quote, request.language, request.isRanked);
    }
    if (parsed.wanted == Wanted::keys || parsed.wanted == Wanted::wholeKeys) {
        const qxSharedArray value = keyedValueOf(parsed, request, workspace);
        return value ? keysFor(parsed, request, value) : Items();
    }
    Items items = allItemsFor(parsed, request, workspace);
    return parsed.wanted == Wanted::arguments ? withNames(std::move(items), parsed, request)
                                              : chosen(std::move(items), {typedName(parsed), request.isRanked});
}

std::u16string_view typedName(const ParsedText& parsed) noexcept {
    return parsed.wanted == Wanted::files ? lastOfPath(parsed.fragment) : parsed.fragment;
}

Completions complete(const Request& request, Workspace& workspace) {
    const ParsedText parsed = parse(request.text, request.cursor);
    Completions answer;
    answer.end = parsed.end;
    answer.items = itemsFor(parsed, request, workspace);
    if (answer.items.empty()) {
        answer.refusal = parsed.refusal;
        answer.reason = reasonFor(parsed, request, workspace);
    }
    answer.start = parsed.end - (answer.refusal == Refusal::none ? typedName(parsed).size() : 0);
    limit(answer, request.limit);
    return answer;
}

}  // namespace contextdata::completion
