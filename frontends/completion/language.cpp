#include "frontends/completion/language.h"

namespace contextdata::completion {

namespace {

std::u16string escapedByBackslash(std::u16string_view text, char16_t quote) {
    std::u16string escaped;
    escaped.reserve(text.size());
    for (const char16_t unit : text) {
        if (unit == u'\\' || unit == quote) {
            escaped += u'\\';
        }
        escaped += unit;
    }
    return escaped;
}

}  // namespace

const Language& plainLanguage() noexcept {
    static constexpr Language language = {escapedByBackslash, u"="};
    return language;
}

}  // namespace contextdata::completion
