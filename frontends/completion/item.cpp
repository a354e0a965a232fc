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

/// Items are large, so their places are sorted in their stead.
std::vector<Item> sortedByName(std::vector<Item> items) {
    std::vector<std::pair<std::u16string_view, std::size_t>> places;
    places.reserve(items.size());
    for (std::size_t place = 0; place < items.size(); ++place) {
        places.emplace_back(items[place].name, place);
    }
    std::sort(places.begin(), places.end());
    std::vector<Item> sorted;
    sorted.reserve(items.size());
    for (const auto& [name, place] : places) {
        sorted.push_back(std::move(items[place]));
    }
    return sorted;
}

}  // namespace

const char* textOf(Kind kind) noexcept { return kindTexts[static_cast<std::size_t>(kind)]; }

Items sortedOnce(std::vector<Item> items) {
    if (!std::is_sorted(items.begin(), items.end(), nameBefore)) {
        items = sortedByName(std::move(items));
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
