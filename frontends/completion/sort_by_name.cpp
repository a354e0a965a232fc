#include "frontends/completion/sort_by_name.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <utility>

#include "frontends/completion/name_order.h"

namespace contextdata::completion {

namespace {

constexpr unsigned bitsOfUnit = 16;
constexpr std::size_t unitsInKey = sizeof(std::uint64_t) / sizeof(char16_t);
/// Fewer are quicker compared as wholes.
constexpr std::size_t fewestByKey = 8;

/// Where an item stands before the sort, with the part of its name that is being compared.
struct Place {
    std::uint64_t key;
    std::size_t index;
};

/// The first unit in the highest bits, zeros after the end: keys are in the order of their texts, except that equal
/// keys whose last unit is zero say nothing.
std::uint64_t keyOf(std::u16string_view text) {
    std::uint64_t key = 0;
    for (std::size_t unit = 0; unit < unitsInKey; ++unit) {
        key = (key << bitsOfUnit) | (unit < text.size() ? text[unit] : 0U);
    }
    return key;
}

bool isWhole(std::uint64_t key) { return (key & 0xFFFF) != 0; }

/// Sorts the places of items, which are large and have their names elsewhere, by a part of the names at a time: what
/// names that are listed together begin with is mostly the same, and is looked at once.
class PlacesByName {
public:
    explicit PlacesByName(const std::vector<Item>& items) : items_(items) {
        places_.reserve(items.size());
        for (std::size_t index = 0; index < items.size(); ++index) {
            places_.push_back({0, index});
        }
        sort(places_, 0);
    }

    /// Says for each position which item comes there.
    std::vector<Place> take() { return std::move(places_); }

private:
    std::u16string_view nameOf(const Place& place, std::size_t from) const {
        return std::u16string_view(items_[place.index].name).substr(from);
    }

    /// Sorts places whose names are the same before `from`.
    void sort(std::span<Place> places, std::size_t from) {
        if (places.size() < fewestByKey) {
            compareWhole(places, from);
            return;
        }
        from += commonLength(places, from);
        for (Place& place : places) {
            place.key = keyOf(nameOf(place, from));
        }
        std::sort(places.begin(), places.end(),
                  [](const Place& left, const Place& right) { return left.key < right.key; });
        for (auto first = places.begin(); first != places.end();) {
            const std::uint64_t key = first->key;
            const auto last = std::find_if(first, places.end(), [key](const Place& place) { return place.key != key; });
            const std::span<Place> same(first, last);
            isWhole(key) ? sort(same, from + unitsInKey) : compareWhole(same, from);
            first = last;
        }
    }

    void compareWhole(std::span<Place> places, std::size_t from) {
        std::sort(places.begin(), places.end(), [this, from](const Place& left, const Place& right) {
            const std::u16string_view leftName = nameOf(left, from);
            const std::u16string_view rightName = nameOf(right, from);
            return leftName == rightName ? left.index < right.index : comesBefore(leftName, rightName);
        });
    }

    /// The number of units after `from` with which all names go on.
    std::size_t commonLength(std::span<const Place> places, std::size_t from) const {
        std::u16string_view common = nameOf(places.front(), from);
        for (const Place& place : places) {
            if (common.empty()) {
                break;
            }
            const std::u16string_view name = nameOf(place, from);
            const auto end = std::mismatch(common.begin(), common.end(), name.begin(), name.end()).first;
            common = common.substr(0, static_cast<std::size_t>(end - common.begin()));
        }
        return common.size();
    }

    const std::vector<Item>& items_;
    std::vector<Place> places_;
};

/// Moves each item to where it belongs; `places` is used up.
void rearrange(std::vector<Item>& items, std::vector<Place> places) {
    for (std::size_t first = 0; first < places.size(); ++first) {
        if (places[first].index == first) {
            continue;
        }
        Item carried = std::move(items[first]);
        std::size_t free = first;
        while (places[free].index != first) {
            const std::size_t next = std::exchange(places[free].index, free);
            items[free] = std::move(items[next]);
            free = next;
        }
        places[free].index = free;
        items[free] = std::move(carried);
    }
}

}  // namespace

void sortByName(std::vector<Item>& items) { rearrange(items, PlacesByName(items).take()); }

}  // namespace contextdata::completion
