#include "frontends/python/src/python_language.h"

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

}  // namespace contextdata::python
