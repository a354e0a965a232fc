#include "frontends/python/src/python_language.h"

#include <array>

namespace contextdata::python {

namespace {

bool isControl(char16_t unit) { return unit < 0x20 || unit == 0x7F; }

void appendControl(std::u16string& text, char16_t unit) {
    constexpr std::u16string_view digits = u"0123456789abcdef";
    switch (unit) {
        case u'\n':
            text += u"\\n";
            break;
        case u'\r':
            text += u"\\r";
            break;
        case u'\t':
            text += u"\\t";
            break;
        default:
            text += u"\\x";
            text += digits[unit / digits.size()];
            text += digits[unit % digits.size()];
    }
}

/// Stands where the host has no text for what a key or a file is really called.
constexpr char16_t replacement = 0xFFFD;

std::u16string escaped(std::u16string_view text, char16_t quote) {
    if (text.find(replacement) != std::u16string_view::npos) {
        return {};
    }
    std::u16string result;
    result.reserve(text.size());
    for (const char16_t unit : text) {
        if (isControl(unit)) {
            appendControl(result, unit);
            continue;
        }
        if (unit == u'\\' || unit == quote) {
            result += u'\\';
        }
        result += unit;
    }
    return result;
}

}  // namespace

const completion::Language& pythonLanguage() noexcept {
    static constexpr completion::Language language = {escaped, u"="};
    return language;
}

std::span<const std::u16string_view> pythonKeywords() noexcept {
    static constexpr std::array<std::u16string_view, 35> words = {
        u"False", u"None",     u"True",  u"and",    u"as",   u"assert", u"async",  u"await",    u"break",
        u"class", u"continue", u"def",   u"del",    u"elif", u"else",   u"except", u"finally",  u"for",
        u"from",  u"global",   u"if",    u"import", u"in",   u"is",     u"lambda", u"nonlocal", u"not",
        u"or",    u"pass",     u"raise", u"return", u"try",  u"while",  u"with",   u"yield"};
    return words;
}

}  // namespace contextdata::python
