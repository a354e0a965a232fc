// A list of members in both of its forms: as the engine's items, and as Python objects ready to be handed out.
#pragma once

#include <pybind11/pybind11.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "frontends/completion/item.h"
#include "frontends/completion/ranking.h"

namespace contextdata::python {

/// A tuple of `Completion` for items, in their order.
pybind11::tuple tupleOfItems(const completion::Items& items);

/// Holds texts only, none of a user's objects, and never changes what it answers.
class Listing {
public:
    /// `objectsAreAsked`: whether objects of the class that is listed tell more by a hook of the class.
    explicit Listing(completion::Items items, bool objectsAreAsked = false);

    /// Of completions that are sorted by name; `itemsOf` makes their items when these are first needed.
    Listing(pybind11::tuple completions, std::function<completion::Items(const pybind11::tuple&)> itemsOf);

    bool objectsAreAsked() const noexcept { return objectsAreAsked_; }

    const completion::Items& items() const;

    /// One of the completions, by the place of its item.
    pybind11::object completion(std::size_t place) const;

    /// The completions of a choice, as a tuple, with more items sorted in. No name of `more`, which is in any order,
    /// stands in the listing or twice. What is in the listing is never copied, and when all of it is wanted, hardly
    /// looked at.
    pybind11::object tupleOf(const completion::Choice& choice, completion::Items more = {}) const;

private:
    /// The listing in order of rank: places of `items_`, and the same as Python objects.
    struct Ranking {
        std::vector<std::uint32_t> places;
        std::vector<completion::SortKey> keys;  // by place
        pybind11::tuple completions;
    };

    pybind11::object sorted(std::u16string_view prefix, completion::Items more) const;
    pybind11::object withPrefix(std::u16string_view prefix) const;
    pybind11::object ranked(std::u16string_view text, completion::Items more) const;
    pybind11::object allRanked(const completion::Items& more) const;
    template <class MatchOf>
    pybind11::object fitting(const completion::Items& more, MatchOf matchOf) const;
    const Ranking& ranking() const;

    mutable completion::Items items_;
    pybind11::tuple completions_;
    mutable std::function<completion::Items(const pybind11::tuple&)> itemsOf_;  // until items are made
    bool objectsAreAsked_;
    mutable std::optional<Ranking> ranking_;  // made when somebody asks
};

using ListingPtr = std::shared_ptr<const Listing>;

}  // namespace contextdata::python
