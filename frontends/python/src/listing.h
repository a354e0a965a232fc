// A list of members in both of its forms: as the engine's items, and as Python objects ready to be handed out.
#pragma once

#include <pybind11/pybind11.h>

#include <memory>
#include <string_view>
#include <unordered_set>

#include "frontends/completion/item.h"

namespace contextdata::python {

/// Immutable. Holds texts only, none of a user's objects.
class Listing {
public:
    /// `objectsAreAsked`: whether objects of the class that is listed tell more by a hook of the class.
    explicit Listing(completion::Items items, bool objectsAreAsked = false);

    bool objectsAreAsked() const noexcept { return objectsAreAsked_; }

    bool contains(std::u16string_view name) const { return names_.contains(name); }

    /// The completions whose names begin with `prefix`, as a tuple; an empty prefix costs nothing.
    pybind11::object tupleOf(std::u16string_view prefix) const;

    /// The same with more items sorted in. No name of `more` is in the listing.
    pybind11::object tupleWith(const completion::Items& more, std::u16string_view prefix) const;

private:
    completion::Items items_;
    std::unordered_set<std::u16string_view> names_;  // of items_
    pybind11::tuple completions_;
    bool objectsAreAsked_;
};

using ListingPtr = std::shared_ptr<const Listing>;

}  // namespace contextdata::python
