// The order of names of which nothing is moved: where each of them belongs.
#pragma once

#include <algorithm>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>
#include <vector>

namespace contextdata::completion {

/// Where a name stood, with the part of it that was compared last.
struct Place {
    std::uint64_t key;
    std::size_t index;
};

/// Sorts the places of names by code unit; equal names stay in the order they had.
///
/// What is named is large and its names are elsewhere, so places are sorted in its stead, by a part of the names at a
/// time: what names that are listed together begin with is mostly the same, and is looked at once. `unitsOf(index)`
/// answers the code units of a name as a `std::span`; they stay where they are meanwhile.
template <class UnitsOf>
class PlacesByName {
public:
    PlacesByName(std::size_t count, UnitsOf unitsOf) : unitsOf_(std::move(unitsOf)) {
        places_.reserve(count);
        for (std::size_t index = 0; index < count; ++index) {
            places_.push_back({0, index});
        }
        sort(places_, 0);
    }

    /// For each position, which name comes there.
    std::vector<Place> take() { return std::move(places_); }

private:
    using Units = decltype(std::declval<UnitsOf>()(std::size_t{}));
    using Unit = typename Units::value_type;

    static constexpr std::size_t unitsInKey = sizeof(std::uint64_t) / sizeof(Unit);
    static constexpr unsigned bitsOfUnit = 8 * sizeof(Unit);
    /// Fewer are quicker compared as wholes.
    static constexpr std::size_t fewestByKey = 8;

    /// The first unit in the highest bits, zeros after the end: keys are in the order of their names, except that equal
    /// keys whose last unit is zero say nothing.
    static std::uint64_t keyOf(Units units) {
        std::uint64_t key = 0;
        for (std::size_t place = 0; place < unitsInKey; ++place) {
            key = (key << bitsOfUnit) | (place < units.size() ? units[place] : 0U);
        }
        return key;
    }

    static bool isWhole(std::uint64_t key) { return static_cast<Unit>(key) != 0; }

    Units unitsOf(const Place& place, std::size_t from) const { return unitsOf_(place.index).subspan(from); }

    /// Sorts places whose names are the same before `from`.
    void sort(std::span<Place> places, std::size_t from) {
        if (places.size() < fewestByKey) {
            compareWhole(places, from);
            return;
        }
        from += commonLength(places, from);
        for (Place& place : places) {
            place.key = keyOf(unitsOf(place, from));
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
            const Units leftUnits = unitsOf(left, from);
            const Units rightUnits = unitsOf(right, from);
            const auto order = std::lexicographical_compare_three_way(leftUnits.begin(), leftUnits.end(),
                                                                      rightUnits.begin(), rightUnits.end());
            return std::is_eq(order) ? left.index < right.index : std::is_lt(order);
        });
    }

    /// The number of units after `from` with which all names go on.
    std::size_t commonLength(std::span<const Place> places, std::size_t from) const {
        Units common = unitsOf(places.front(), from);
        for (const Place& place : places) {
            if (common.empty()) {
                break;
            }
            const Units units = unitsOf(place, from);
            const auto end = std::mismatch(common.begin(), common.end(), units.begin(), units.end()).first;
            common = common.first(static_cast<std::size_t>(end - common.begin()));
        }
        return common.size();
    }

    UnitsOf unitsOf_;
    std::vector<Place> places_;
};

/// The places of `count` names in order, for each position the place that comes there.
template <class UnitsOf>
std::vector<Place> placesByName(std::size_t count, UnitsOf unitsOf) {
    return PlacesByName<UnitsOf>(count, std::move(unitsOf)).take();
}

}  // namespace contextdata::completion
