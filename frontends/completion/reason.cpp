#include "frontends/completion/reason.h"

#include <algorithm>
#include <span>

#include "frontends/completion/ask.h"
#include "frontends/completion/characters.h"
#include "frontends/completion/expression_value.h"
#include "frontends/completion/value_members.h"

namespace contextdata::completion {

namespace {

using Chain = std::span<const std::u16string_view>;

std::u16string quoted(std::u16string_view text) {
    constexpr std::size_t mostUnits = 60;
    std::u16string shown(text.substr(0, mostUnits));
    shown += text.size() > mostUnits ? u"…" : u"";
    return u"'" + shown + u"'";
}

std::u16string widened(std::string_view ascii) { return {ascii.begin(), ascii.end()}; }

std::u16string noneBeginsSo(std::u16string_view what) { return u"no " + std::u16string(what) + u" begins with that"; }

std::u16string undefined(std::u16string_view name) { return quoted(name) + u" is not defined"; }

std::u16string refused(const Rules& rules, std::u16string_view what) {
    const std::u16string who = rules.name.empty() ? u"the host" : u"the policy " + quoted(rules.name);
    return who + u" refuses to evaluate " + std::u16string(what);
}

std::u16string memberless(std::u16string_view holder, std::u16string_view name) {
    return quoted(holder) + u" has no member " + quoted(name);
}

constexpr std::u16string_view beforeDot = u"what stands before the dot";
constexpr std::u16string_view beforeBracket = u"what stands before the bracket";

bool offers(const qxSharedArray& value, std::u16string_view name) {
    const Items items = unlessItFails([&] { return membersOf(describe(value)); });
    return std::any_of(items.begin(), items.end(), [name](const Item& item) { return item.name == name; });
}

/// What ends the search at a name that cannot be read from the value before it.
std::u16string unread(const qxSharedArray& holder, Chain chain, std::size_t place, const Rules& rules) {
    const std::u16string whole = dotted(chain.first(place + 1));
    if (chain[place].starts_with(u'_') || offers(holder, chain[place])) {
        return refused(rules, quoted(whole));
    }
    return memberless(dotted(chain.first(place)), chain[place]);
}

/// What of a chain of names is not known to name a class or namespace; empty when all of it does.
std::u16string unknown(Chain chain, const std::u16string& file) {
    std::size_t known = chain.size();
    while (known > 0 && named(chain.first(known), file).nature == Subject::Nature::nothing) {
        --known;
    }
    if (known == chain.size()) {
        return {};
    }
    return known == 0 ? undefined(chain.front()) : memberless(dotted(chain.first(known)), chain[known]);
}

/// Why a chain leads nowhere; empty when it leads to something, and when finding out might run code once more.
std::u16string unreached(Chain chain, const Request& request, Workspace& workspace) {
    const qxSharedArray root = unlessItFails([&] { return workspace.find(std::u16string(chain.front())); });
    if (!root) {
        return unknown(chain, request.file);
    }
    qxSharedArray value = root;
    for (std::size_t place = 1; place < chain.size() && !request.rules.runsCode; ++place) {
        const Chain last = chain.subspan(place, 1);
        qxSharedArray next =
            request.rules.walks ? follow(value, last) : valueAtEnd(root, chain.first(place + 1), request.rules);
        if (!next) {
            return unread(value, chain, place, request.rules);
        }
        value = std::move(next);
    }
    return {};
}

/// The name that a text begins with; empty for a literal.
std::u16string firstName(std::u16string_view text) {
    const auto* end = std::find_if_not(text.begin(), text.end(), isNameUnit);
    const bool isName = end != text.begin() && isNameStart(text.front()) && (end == text.end() || !isQuote(*end));
    return isName ? std::u16string(text.begin(), end) : std::u16string();
}

/// Why an expression has no value; empty when it has one, and when finding out might run code once more.
std::u16string unevaluated(const ParsedText& parsed, std::u16string_view what, const Request& request,
                           Workspace& workspace) {
    const std::u16string first = firstName(parsed.expression);
    if (!first.empty() && !unlessItFails([&] { return workspace.find(first); })) {
        return undefined(first);
    }
    if (request.rules.runsCode || (!parsed.runsCode && valueOfExpression(parsed.expression, request.rules))) {
        return {};
    }
    return refused(request.rules, what);
}

std::u16string reasonForMembers(const ParsedText& parsed, const Request& request, Workspace& workspace) {
    std::u16string reason = parsed.expression.empty() ? unreached(parsed.chain, request, workspace)
                                                      : unevaluated(parsed, beforeDot, request, workspace);
    if (!reason.empty()) {
        return reason;
    }
    return parsed.fragment.empty() ? std::u16string(beforeDot) + u" has no members" : noneBeginsSo(u"name");
}

std::u16string reasonForKeys(const ParsedText& parsed, const Request& request, Workspace& workspace) {
    std::u16string reason = parsed.expression.empty() ? unreached(parsed.chain, request, workspace)
                                                      : unevaluated(parsed, beforeBracket, request, workspace);
    if (!reason.empty()) {
        return reason;
    }
    return parsed.fragment.empty() ? std::u16string(beforeBracket) + u" has no keys that can be listed"
                                   : noneBeginsSo(u"key");
}

}  // namespace

std::u16string reasonFor(const ParsedText& parsed, const Request& request, Workspace& workspace) {
    const bool isEmpty = typedName(parsed).empty();
    if (isTooLong(parsed.chain) || parsed.expression.size() > longestExpression) {
        return u"the text is too long";
    }
    switch (parsed.wanted) {
        case Wanted::members:
        case Wanted::membersOfExpression:
            return reasonForMembers(parsed, request, workspace);
        case Wanted::keys:
        case Wanted::wholeKeys:
            return reasonForKeys(parsed, request, workspace);
        case Wanted::arguments:
            return isEmpty ? u"the call has no arguments that can be named here" : noneBeginsSo(u"name");
        case Wanted::names:
            return noneBeginsSo(u"name");
        case Wanted::modules:
            return isEmpty ? u"no such module is known" : noneBeginsSo(u"module");
        case Wanted::importedNames:
            return isEmpty ? u"no such module is known" : noneBeginsSo(u"name");
        case Wanted::files:
            return isEmpty ? u"in a string, and there is no such folder, or nothing in it"
                           : u"in a string, and " + noneBeginsSo(u"file");
        case Wanted::nothing:
            break;
    }
    return widened(textOf(parsed.refusal));
}

}  // namespace contextdata::completion
