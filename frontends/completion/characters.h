// The kinds of characters that typed text is made of.
#pragma once

namespace contextdata::completion {

constexpr bool isDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }
constexpr bool isAsciiLetter(char16_t unit) { return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z'); }
/// Any unit beyond ASCII may stand in a name.
constexpr bool isNameStart(char16_t unit) { return isAsciiLetter(unit) || unit == u'_' || unit >= 0x80; }
constexpr bool isNameUnit(char16_t unit) { return isNameStart(unit) || isDigit(unit); }
constexpr bool isBlank(char16_t unit) { return unit == u' ' || unit == u'\t' || unit == u'\f'; }
constexpr bool isLineEnd(char16_t unit) { return unit == u'\n' || unit == u'\r'; }
constexpr bool isOpening(char16_t unit) { return unit == u'(' || unit == u'[' || unit == u'{'; }
constexpr bool isClosing(char16_t unit) { return unit == u')' || unit == u']' || unit == u'}'; }
constexpr bool isQuote(char16_t unit) { return unit == u'\'' || unit == u'"'; }

}  // namespace contextdata::completion
