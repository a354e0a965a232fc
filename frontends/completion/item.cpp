#include "frontends/completion/item.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

namespace contextdata::completion {

namespace {

constexpr std::array<const char*, kindCount> kindTexts = {
    "method", "static method", "property", "constant", "enumeration member", "class",  "function", "namespace", "field",
    "key",    "argument",      "file",     "folder",   "variable",           "keyword"};

bool nameBefore(const Item& left, const Item& right) { return left.name < right.name; }

}  // namespace

const char* textOf(Kind kind) noexcept { return kindTexts[static_cast<std::size_t>(kind)]; }

Items sortedOnce(std::vector<Item> items) {
    // Many a source has its names in order, and comparing is cheaper than moving.
    if (!std::is_sorted(items.begin(), items.end(), nameBefore)) {
        std::stable_sort(items.begin(), items.end(), nameBefore);
    }
    const auto sameName = [](const Item& left, const Item& right) { return left.name == right.name; };
    items.erase(std::unique(items.begin(), items.end(), sameName), items.end());
    return items;
}

Items merged(const Items& first, const Items& second) {
    Items result;
    result.reserve(first.size() + second.size());
    std::set_union(first.begin(), first.end(), second.begin(), second.end(), std::back_inserter(result), nameBefore);
    return result;
}

std::pair<std::size_t, std::size_t> rangeOfPrefix(const Items& items, std::u16string_view prefix) noexcept {
    const auto begin = std::partition_point(items.begin(), items.end(),
                                            [&](const Item& item) { return std::u16string_view(item.name) < prefix; });
    const auto end = std::partition_point(begin, items.end(), [&](const Item& item) {
        return std::u16string_view(item.name).substr(0, prefix.size()) == prefix;
    });
    return {static_cast<std::size_t>(begin - items.begin()), static_cast<std::size_t>(end - items.begin())};
}

}  // namespace contextdata::completion
