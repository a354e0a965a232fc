#include "frontends/python/src/question.h"

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

#include "frontends/completion/expression_value.h"
#include "frontends/completion/keys.h"
#include "frontends/completion/reason.h"
#include "frontends/python/src/listing.h"
#include "frontends/python/src/live_members.h"
#include "frontends/python/src/module_members.h"
#include "frontends/python/src/names.h"
#include "frontends/python/src/policy.h"
#include "frontends/python/src/python_language.h"
#include "frontends/python/src/python_text.h"
#include "frontends/python/src/written_keys.h"

namespace contextdata::python {

using completion::Item;
using completion::Items;
using completion::ParsedText;
using completion::Wanted;

Question::Question(const CompleteArguments& arguments, const ParsedText& parsed, const Asker& asker)
    : parsed_(parsed),
      choice_{completion::typedName(parsed), arguments.isRanked},
      asker_(asker),
      workspace_(workspaceOf(arguments.scope)),
      variables_(workspace_) {}

Offered Question::answer() {
    switch (parsed_.wanted) {
        case Wanted::nothing:
            return {pybind11::tuple()};
        case Wanted::members:
            return offered(membersOfChain());
        case Wanted::membersOfExpression:
            return offered(membersAt(valueOfExpression()));
        case Wanted::keys:
        case Wanted::wholeKeys:
            return keys();
        case Wanted::modules:
            return offered(tupleOfItems(modules()));
        case Wanted::importedNames:
            return offered(tupleOfItems(importedNames()));
        case Wanted::files:
            return offered(tupleOfItems(itemsFor(parsed_, request({}), variables_)));
        case Wanted::names:
        case Wanted::arguments:
            break;
    }
    const std::vector<Item> names = namesFor(workspace_, choice_);
    return offered(tupleOfItems(itemsFor(parsed_, request(names), variables_)));
}

pybind11::object Question::reason() {
    if (parsed_.wanted == Wanted::members && isUnloadedModule(parsed_.chain) &&
        !variables_.find(std::u16string(parsed_.chain.front()))) {
        return strOf(u"the module '" + completion::dotted(parsed_.chain) + u"' is not imported");
    }
    return strOf(reasonFor(parsed_, request({}), variables_));
}

completion::Request Question::request(std::span<const Item> names) const {
    return {.text = {},
            .file = noFile,
            .language = pythonLanguage(),
            .names = names,
            .isRanked = choice_.isRanked,
            .rules = rulesInForce()};
}

Offered Question::offered(pybind11::object items) const { return {std::move(items), choice_.typed.size()}; }

pybind11::object Question::membersAt(const qxSharedArray& value) const {
    return value ? membersOfValue(value, choice_, asker_) : pybind11::tuple();
}

pybind11::object Question::membersOfChain() {
    const qxSharedArray root = variables_.find(std::u16string(parsed_.chain.front()));
    return root ? membersAt(valueAtEnd(root, parsed_.chain, rulesInForce()))
                : membersOfNamed(namedInSession(parsed_.chain), choice_, asker_);
}

qxSharedArray Question::valueOfExpression() const {
    const completion::Rules rules = rulesInForce();
    const bool isRefused = parsed_.runsCode && !rules.runsCode;
    return isRefused ? qxSharedArray() : completion::valueOfExpression(parsed_.expression, rules);
}

/// Keys that are texts go into the string that was begun; where there are none, all that was typed of a key is replaced
/// by one that is no text.
Offered Question::keys() {
    const qxSharedArray value = keyedValueOf(parsed_, request({}), variables_);
    if (!value) {
        return {pybind11::tuple()};
    }
    Items items = keysFor(parsed_, request({}), value);
    if (parsed_.wanted == Wanted::keys) {
        return items.empty() ? Offered{tupleOfItems(writtenKeys(value, parsed_.wholeKey)), parsed_.wholeKey.size()}
                             : offered(tupleOfItems(items));
    }
    for (Item& key : writtenKeys(value, parsed_.wholeKey)) {
        key.sortKey = choice_.isRanked ? sortKeyOf(key, completion::Match::beginning) : key.sortKey;
        items.push_back(std::move(key));
    }
    std::sort(items.begin(), items.end(), completion::ranksBefore);
    items.erase(std::unique(items.begin(), items.end()), items.end());
    return offered(tupleOfItems(items));
}

/// What custom calls private is offered when it was asked for.
Items Question::modules() {
    Items found = parsed_.chain.empty() ? outermostModules(choice_) : itemsFor(parsed_, request({}), variables_);
    return parsed_.fragment.starts_with(u'_') ? found : withoutPrivateModules(std::move(found));
}

/// What the module on disk holds, and what the loaded one binds.
Items Question::importedNames() {
    ParsedText all = parsed_;
    all.fragment = {};
    Items held = withoutPrivateModules(itemsFor(all, request({}), variables_));
    return chosen(merged(held, boundNames(parsed_.chain)), choice_);
}

}  // namespace contextdata::python
