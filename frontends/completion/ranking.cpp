#include "frontends/completion/ranking.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <utility>

#include "frontends/completion/name_order.h"

namespace contextdata::completion {

namespace {

struct CapitalRange {
    char16_t first;
    char16_t last;
    char16_t distance;  ///< to the small letter
};

constexpr std::array<CapitalRange, 4> capitalsBeyondAscii = {{
    {0x00C0, 0x00DE, 0x20},  // À to Þ
    {0x0391, 0x03A9, 0x20},  // Α to Ω
    {0x0410, 0x042F, 0x20},  // А to Я
    {0x0400, 0x040F, 0x50},  // Ѐ to Џ
}};
constexpr char16_t multiplicationSign = 0x00D7;

/// Names that stand together often begin alike, so the last letter is looked at first.
bool beginsWithLowered(std::u16string_view name, std::u16string_view pattern) noexcept {
    if (pattern.empty()) {
        return true;
    }
    if (name.size() < pattern.size() || lowered(name[pattern.size() - 1]) != pattern.back()) {
        return false;
    }
    return std::equal(pattern.begin(), pattern.end(), name.begin(),
                      [](char16_t wanted, char16_t unit) { return lowered(unit) == wanted; });
}

/// The pattern is not empty.
bool isScattered(std::u16string_view name, std::u16string_view pattern) noexcept {
    if (name.empty() || lowered(name.front()) != pattern.front()) {
        return false;
    }
    std::size_t found = 0;
    for (const char16_t unit : name) {
        if (lowered(unit) == pattern[found] && ++found == pattern.size()) {
            return true;
        }
    }
    return false;
}

/// Whether the name begins so but for one mistake, all letters before `place` being right and the one there wrong.
bool isMistypedAt(std::u16string_view name, std::u16string_view pattern, std::size_t place) noexcept {
    const std::u16string_view typed = pattern.substr(place);
    const std::u16string_view meant = name.substr(place);
    if (meant.empty()) {
        return typed.size() == 1;
    }
    const bool isWrong = beginsWithLowered(meant.substr(1), typed.substr(1));
    const bool isMissing = beginsWithLowered(meant.substr(1), typed);
    const bool isAdded = beginsWithLowered(meant, typed.substr(1));
    const bool isSwapped = typed.size() > 1 && meant.size() > 1 && lowered(meant[0]) == typed[1] &&
                           lowered(meant[1]) == typed[0] && beginsWithLowered(meant.substr(2), typed.substr(2));
    return isWrong || isMissing || isAdded || isSwapped;
}

bool isMistyped(std::u16string_view name, std::u16string_view pattern) noexcept {
    constexpr std::size_t fewestLetters = 3;
    if (pattern.size() < fewestLetters) {
        return false;
    }
    std::size_t place = 0;
    while (place < pattern.size() && place < name.size() && lowered(name[place]) == pattern[place]) {
        ++place;
    }
    return isMistypedAt(name, pattern, place);
}

/// 0 for what is public, 1 for `_name`, 2 for `__name__`. In keys and files an underscore says nothing.
unsigned reserveOf(const Item& item) noexcept {
    const bool isName = item.kind != Kind::key && item.kind != Kind::file && item.kind != Kind::folder;
    if (!isName || !item.name.starts_with(u'_')) {
        return 0;
    }
    return item.name.starts_with(u"__") && item.name.ends_with(u"__") ? 2 : 1;
}

constexpr unsigned matchShift = 4;
constexpr unsigned argumentShift = 3;
constexpr unsigned reserveShift = 1;

Items ranked(Items items, std::u16string_view text) {
    const Typed typed(text);
    std::vector<Match> matches;
    matches.reserve(items.size());
    std::transform(items.begin(), items.end(), std::back_inserter(matches),
                   [&typed](const Item& item) { return typed.match(item.name); });
    const bool hasClose = std::any_of(matches.begin(), matches.end(), isClose);
    Items answer;
    for (std::size_t place = 0; place < items.size(); ++place) {
        const Match match = matches[place];
        if (hasClose ? isClose(match) : match != Match::none) {
            items[place].sortKey = sortKeyOf(items[place], match);
            answer.push_back(std::move(items[place]));
        }
    }
    std::sort(answer.begin(), answer.end(), ranksBefore);
    return answer;
}

}  // namespace

char16_t lowered(char16_t unit) noexcept {
    if (unit < 0x80) {
        return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 0x20) : unit;
    }
    for (const CapitalRange& range : capitalsBeyondAscii) {
        if (unit >= range.first && unit <= range.last && unit != multiplicationSign) {
            return static_cast<char16_t>(unit + range.distance);
        }
    }
    return unit;
}

Typed::Typed(std::u16string_view text) : text_(text), lowered_(text) {
    std::transform(lowered_.begin(), lowered_.end(), lowered_.begin(), lowered);
}

Match Typed::closeMatch(std::u16string_view name) const noexcept {
    if (!beginsWithLowered(name, lowered_)) {
        return Match::none;
    }
    return name.starts_with(text_) ? Match::beginning : Match::otherCase;
}

Match Typed::match(std::u16string_view name) const noexcept {
    if (const Match close = closeMatch(name); close != Match::none) {
        return close;
    }
    if (isScattered(name, lowered_)) {
        return Match::scattered;
    }
    return isMistyped(name, lowered_) ? Match::mistyped : Match::none;
}

SortKey sortKeyOf(const Item& item, Match match) noexcept {
    const unsigned afterArguments = item.kind == Kind::argument ? 0 : 1;
    return withMatch(static_cast<SortKey>(afterArguments << argumentShift | reserveOf(item) << reserveShift |
                                          (item.isInherited ? 1U : 0U)),
                     match);
}

SortKey withMatch(SortKey key, Match match) noexcept {
    constexpr unsigned standing = (1U << matchShift) - 1;
    return static_cast<SortKey>(static_cast<unsigned>(match) << matchShift | (key & standing));
}

bool ranksBefore(const Item& left, const Item& right) noexcept {
    return left.sortKey != right.sortKey ? left.sortKey < right.sortKey : comesBefore(left.name, right.name);
}

Items chosen(std::vector<Item> items, const Choice& choice) {
    if (choice.isRanked) {
        return ranked(sortedOnce(std::move(items)), choice.typed);
    }
    std::erase_if(items, [&choice](const Item& item) { return !item.name.starts_with(choice.typed); });
    return sortedOnce(std::move(items));
}

}  // namespace contextdata::completion
