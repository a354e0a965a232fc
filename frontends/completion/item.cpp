#include "frontends/completion/item.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <numeric>
#include <utility>

#include "frontends/completion/name_order.h"

namespace contextdata::completion {

namespace {

constexpr std::array<const char*, kindCount> kindTexts = {
    "method", "static method", "property", "constant", "enumeration member", "class",  "function", "namespace", "field",
    "key",    "argument",      "file",     "folder",   "variable",           "keyword"};

bool nameBefore(const Item& left, const Item& right) { return comesBefore(left.name, right.name); }

/// Moves each item to where it belongs; `places` says for each position which item comes there, and is used up.
void rearrange(std::vector<Item>& items, std::vector<std::uint32_t>& places) {
    for (std::uint32_t first = 0; first < places.size(); ++first) {
        Item carried = std::move(items[first]);
        std::uint32_t free = first;
        while (places[free] != first) {
            const std::uint32_t next = std::exchange(places[free], free);
            items[free] = std::move(items[next]);
            free = next;
        }
        places[free] = free;
        items[free] = std::move(carried);
    }
}

/// Items are large, so their places are sorted in their stead.
void sortByName(std::vector<Item>& items) {
    std::vector<std::uint32_t> places(items.size());
    std::iota(places.begin(), places.end(), 0U);
    // Of one name, the first stays the first.
    std::stable_sort(places.begin(), places.end(), [&](std::uint32_t left, std::uint32_t right) {
        return comesBefore(items[left].name, items[right].name);
    });
    rearrange(items, places);
}

}  // namespace

const char* textOf(Kind kind) noexcept { return kindTexts[static_cast<std::size_t>(kind)]; }

Items sortedOnce(std::vector<Item> items) {
    if (!std::is_sorted(items.begin(), items.end(), nameBefore)) {
        sortByName(items);
    }
    const auto sameName = [](const Item& left, const Item& right) { return left.name == right.name; };
    items.erase(std::unique(items.begin(), items.end(), sameName), items.end());
    return items;
}

Items merged(Items first, Items second) {
    if (second.empty()) {
        return first;
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
                                            [&](const Item& item) { return std::u16string_view(item.name) < prefix; });
    const auto end = std::partition_point(begin, items.end(), [&](const Item& item) {
        return std::u16string_view(item.name).substr(0, prefix.size()) == prefix;
    });
    return {static_cast<std::size_t>(begin - items.begin()), static_cast<std::size_t>(end - items.begin())};
}

}  // namespace contextdata::completion
