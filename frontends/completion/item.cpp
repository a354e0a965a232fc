#include "frontends/completion/item.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "frontends/completion/name_order.h"
#include "frontends/completion/sort_by_name.h"

namespace contextdata::completion {

namespace {

constexpr std::array<const char*, kindCount> kindTexts = {
    "method", "static method", "property", "constant", "enumeration member", "class",  "function", "namespace", "field",
    "key",    "argument",      "file",     "folder",   "variable",           "keyword"};

bool nameBefore(const Item& left, const Item& right) { return comesBefore(left.name, right.name); }

}  // namespace

const char* textOf(Kind kind) noexcept { return kindTexts[static_cast<std::size_t>(kind)]; }

Items sortedOnce(std::vector<Item> items) {
    if (!std::is_sorted(items.begin(), items.end(), nameBefore)) {
        sortByName(items);
    }
    // In a sorted list.
    const auto sameName = [](const Item& left, const Item& right) { return !nameBefore(left, right); };
    items.erase(std::unique(items.begin(), items.end(), sameName), items.end());
    return items;
}

Items merged(Items first, Items second) {
    if (second.empty()) {
        return first;
    }
    if (first.empty()) {
        return second;
    }
    Items result;
    result.reserve(first.size() + second.size());
    std::set_union(std::make_move_iterator(first.begin()), std::make_move_iterator(first.end()),
                   std::make_move_iterator(second.begin()), std::make_move_iterator(second.end()),
                   std::back_inserter(result), nameBefore);
    return result;
}

Items without(Items items, const Items& others) {
    auto other = others.begin();
    std::erase_if(items, [&](const Item& item) {
        while (other != others.end() && nameBefore(*other, item)) {
            ++other;
        }
        return other != others.end() && other->name == item.name;
    });
    return items;
}

std::pair<std::size_t, std::size_t> rangeOfPrefix(const Items& items, std::u16string_view prefix) noexcept {
    const auto begin = std::partition_point(items.begin(), items.end(),
                                            [&](const Item& item) { return comesBefore(item.name, prefix); });
    const auto end = std::partition_point(
        begin, items.end(), [&](const Item& item) { return std::u16string_view(item.name).starts_with(prefix); });
    return {static_cast<std::size_t>(begin - items.begin()), static_cast<std::size_t>(end - items.begin())};
}

}  // namespace contextdata::completion
