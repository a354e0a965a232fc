#include "frontends/completion/words.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "frontends/completion/ranking.h"

namespace contextdata::completion {

namespace {

using Word = std::u16string_view;

template <std::size_t size>
bool isOneOf(const std::array<Word, size>& words, Word word) noexcept {
    return std::find(words.begin(), words.end(), word) != words.end();
}

}  // namespace

bool beginsOperand(std::u16string_view word) noexcept {
    static constexpr std::array<Word, 23> words = {u"and",    u"as",     u"assert", u"async",  u"await", u"del",
                                                   u"elif",   u"else",   u"except", u"for",    u"from",  u"if",
                                                   u"import", u"in",     u"is",     u"lambda", u"not",   u"or",
                                                   u"raise",  u"return", u"while",  u"with",   u"yield"};
    return isOneOf(words, word);
}

bool introducesName(std::u16string_view word) noexcept {
    static constexpr std::array<Word, 3> words = {u"as", u"class", u"def"};
    return isOneOf(words, word);
}

bool isConstantName(std::u16string_view word) noexcept {
    return word == u"True" || word == u"False" || word == u"None";
}

bool isStringPrefix(std::u16string_view word) noexcept {
    static constexpr std::array<Word, 8> prefixes = {u"b", u"f", u"r", u"u", u"br", u"fr", u"rb", u"rf"};
    constexpr std::size_t longest = 2;
    std::array<char16_t, longest> small = {};
    if (word.size() > longest) {
        return false;
    }
    std::transform(word.begin(), word.end(), small.begin(), lowered);
    return isOneOf(prefixes, Word(small.data(), word.size()));
}

}  // namespace contextdata::completion
