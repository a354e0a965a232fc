// Which of many names what somebody typed may mean, and which of them first.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "frontends/completion/item.h"

namespace contextdata::completion {

/// How a name fits what was typed, the best first.
enum class Match : std::uint8_t {
    beginning,  ///< it begins so
    otherCase,  ///< it begins so in other letter case
    scattered,  ///< it begins with the same letter and has the others, in their order, regardless of case
    mistyped,   ///< it begins so but for one letter that is missing, added or wrong, or two that changed places
    none,
};

/// Whether a name fits so well that those that fit less are of no interest.
constexpr bool isClose(Match match) noexcept { return match <= Match::otherCase; }

/// What somebody typed, ready to be compared with many names.
class Typed {
public:
    /// The text is borrowed.
    explicit Typed(std::u16string_view text);

    /// What was typed, as it was given; borrowed from the caller of the constructor.
    std::u16string_view text() const noexcept { return text_; }

    /// The best of all ways in which a name fits. Typing errors are forgiven from three letters on.
    Match match(std::u16string_view name) const noexcept;

    /// `beginning`, `otherCase` or `none`: cheaper, for a first look.
    Match closeMatch(std::u16string_view name) const noexcept;

private:
    std::u16string_view text_;
    std::u16string lowered_;
};

/// A letter in lower case, as far as Latin, Greek and Cyrillic go; anything else is itself.
char16_t lowered(char16_t unit) noexcept;

/// Where an item stands: better matches first; of equal ones arguments before all else, then what is public before
/// `_name` before `__name__`, then a class's own members before inherited ones. Equal keys go by name.
SortKey sortKeyOf(const Item& item, Match match) noexcept;

/// The key of an item with another match than the one that a key was made for.
SortKey withMatch(SortKey key, Match match) noexcept;

/// Which names are wanted.
struct Choice {
    std::u16string_view typed;  ///< borrowed
    /// By rank, and forgiving: names that fit closely, or else, when there are none, those that fit at all. Otherwise
    /// names that begin exactly so, sorted by name.
    bool isRanked = false;
};

/// The items of a choice, each name once: of several, the first is kept, so sources are appended from the most
/// specific to the least. Beyond that their order says nothing, so equal questions get equal answers.
Items chosen(std::vector<Item> items, const Choice& choice);

/// The order of an answer: by sort key, then by name.
bool ranksBefore(const Item& left, const Item& right) noexcept;

}  // namespace contextdata::completion
