// UTF-8 and UTF-16 read by their definitions, slowly, for comparison.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace fuzz {

using Points = std::vector<char32_t>;

/// The characters of a text; nothing when it is invalid.
std::optional<Points> pointsOf(std::u16string_view text);
std::optional<Points> pointsOf(std::string_view text);

std::string utf8Of(const Points& points);
std::u16string utf16Of(const Points& points);

/// Conversions of valid texts.
std::u16string wide(std::string_view text);
std::string narrow(std::u16string_view text);

/// What converters between ASCII and more make of a text: a question mark for each unit that is no ASCII.
std::u16string wideAscii(std::string_view text);
std::string narrowAscii(std::u16string_view text);

}  // namespace fuzz
