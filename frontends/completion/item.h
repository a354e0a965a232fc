// What the engine offers: a name, what kind of thing it names, and the class that declares it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "frontends/completion/shared_text.h"

namespace contextdata::completion {

/// What kind of thing a name names.
enum class Kind : std::uint8_t {
    method,
    staticMethod,
    property,
    constant,
    enumerationMember,
    classType,
    function,
    space,  ///< a namespace
    field,
    key,       ///< of a value with subscripts, as it is written in a string
    argument,  ///< with the mark that a value follows
    file,
    folder,  ///< with the mark that divides folders
    variable,
    keyword,
};

/// The number of kinds, for tables that are indexed by kind.
inline constexpr std::size_t kindCount = static_cast<std::size_t>(Kind::keyword) + 1;

/// The word that people read for a kind ("static method", "namespace", ...). Permanent, zero-terminated.
const char* textOf(Kind kind) noexcept;

/// Where an item stands among others: a smaller one comes first.
using SortKey = std::uint8_t;

/// One name that is offered. A plain value.
struct Item {
    std::u16string name;         ///< as it is written where the cursor stands
    Kind kind = Kind::property;  ///< what it names
    /// Of a member, whether a superclass declares it; of a name without a dot, whether it comes with the language.
    bool isInherited = false;
    /// In an answer that is ordered by rank, what the order goes by before the name (ranking.h); 0 elsewhere.
    SortKey sortKey = 0;
    /// The full name of the class that declares the member, without package qualification; empty when unknown.
    SharedText definingClass = {};
    /// What stands beside the name, for people: the access of a member that is not everybody's. Permanent.
    std::string_view detail = {};

    friend bool operator==(const Item&, const Item&) = default;
};

/// Sorted by name in code units, each name once.
using Items = std::vector<Item>;

/// Makes `Items` of items in any order. Of several items of one name, the first is kept, so sources are appended
/// from the most specific to the least.
Items sortedOnce(std::vector<Item> items);

/// The items of both lists; where both have a name, that of `first` is kept.
Items merged(Items first, Items second);

/// The items whose names the others lack.
Items without(Items items, const Items& others);

/// The part of a sorted list whose names begin with `prefix`, letter case counted, as positions [first, second).
std::pair<std::size_t, std::size_t> rangeOfPrefix(const Items& items, std::u16string_view prefix) noexcept;

}  // namespace contextdata::completion
