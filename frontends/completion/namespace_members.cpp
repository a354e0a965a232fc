#include "frontends/completion/namespace_members.h"

#include <string_view>
#include <utility>

#include "contextdata/namespace_names.h"
#include "frontends/completion/ask.h"

namespace contextdata::completion {

namespace {

using Names = std::vector<std::u16string>;
using Listing = bool (*)(const std::u16string& namespaceName, Names& names);

/// What follows the last dot, or the mark behind a software package.
std::u16string lastPart(std::u16string_view name) { return std::u16string(name.substr(name.find_last_of(u".:") + 1)); }

void append(std::vector<Item>& items, const std::u16string& space, Listing listing, Kind kind) {
    const Names names = unlessItFails([&] {
        Names listed;
        listing(space, listed);
        return listed;
    });
    for (const std::u16string& name : names) {
        std::u16string part = lastPart(name);
        if (!part.empty()) {
            items.push_back({std::move(part), kind});
        }
    }
}

}  // namespace

Items membersOfNamespace(const std::u16string& name) {
    std::vector<Item> items;
    append(items, name, ZELKContextData::getNamespaceClassNames, Kind::classType);
    append(items, name, ZELKContextData::getNamespaceFunctionNames, Kind::function);
    append(items, name, ZELKContextData::getNamespaceNamespaceNames, Kind::space);
    return sortedOnce(std::move(items));
}

Items innerNamespaces(const std::u16string& name) {
    std::vector<Item> items;
    append(items, name, ZELKContextData::getNamespaceNamespaceNames, Kind::space);
    return sortedOnce(std::move(items));
}

}  // namespace contextdata::completion
