#include "frontends/completion/module_names.h"

#include <string>
#include <utility>
#include <vector>

#include "contextdata/namespace_names.h"
#include "contextdata/values.h"
#include "frontends/completion/ask.h"
#include "frontends/completion/namespace_members.h"
#include "frontends/completion/subject.h"

namespace contextdata::completion {

namespace {

std::vector<std::u16string> namesOfAllNamespaces() {
    return unlessItFails([] {
        const qxUniqueArray cell = ZELKContextData::getZELKAllNamespaces();
        std::vector<std::u16string> names;
        if (cell) {
            getStringsFromQxarray(cell.get(), names);
        }
        return names;
    });
}

/// The parts that follow a prefix in the names, up to the next dot.
Items nextParts(const std::vector<std::u16string>& names, std::u16string_view prefix) {
    std::vector<Item> items;
    for (const std::u16string& name : names) {
        if (!name.starts_with(prefix)) {
            continue;
        }
        const std::u16string_view rest = std::u16string_view(name).substr(prefix.size());
        const std::u16string_view part = rest.substr(0, rest.find(u'.'));
        if (!part.empty() && (items.empty() || items.back().name != part)) {
            items.push_back({std::u16string(part), Kind::space});
        }
    }
    return sortedOnce(std::move(items));
}

}  // namespace

Items modulesIn(std::span<const std::u16string_view> chain) {
    if (chain.empty()) {
        return nextParts(namesOfAllNamespaces(), {});
    }
    const std::u16string name = dotted(chain);
    Items inner = innerNamespaces(name);
    return inner.empty() ? nextParts(namesOfAllNamespaces(), name + u'.') : inner;
}

Items namesToImport(std::span<const std::u16string_view> chain) {
    Items held = membersOfNamespace(dotted(chain));
    return held.empty() ? modulesIn(chain) : held;
}

}  // namespace contextdata::completion
