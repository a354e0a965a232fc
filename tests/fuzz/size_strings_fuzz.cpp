// Sizes as class definitions write them, against the rules of their conversion written a second time.
#include <string>
#include <vector>

#include "contextdata/property_info.h"
#include "tests/fuzz/expect.h"
#include "tests/fuzz/input.h"
#include "tests/fuzz/target.h"

namespace {

using Texts = std::vector<std::u16string>;
using Extents = std::vector<std::uint64_t>;

constexpr std::uint64_t unlimited = ~std::uint64_t{0};

bool isOneOf(char16_t unit, std::u16string_view units) { return units.find(unit) != std::u16string_view::npos; }

constexpr std::u16string_view letters = u"abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
constexpr std::u16string_view digits = u"0123456789";
constexpr std::u16string_view blanks = u" \t\n\v\f\r";

bool isName(const std::u16string& text) {
    if (text.empty() || !isOneOf(text[0], letters)) {
        return false;
    }
    for (const char16_t unit : text) {
        if (!isOneOf(unit, letters) && !isOneOf(unit, digits) && unit != u'_') {
            return false;
        }
    }
    return true;
}

/// False for what is no number of 32 bits.
bool read(const std::u16string& text, std::uint64_t& number) {
    std::size_t first = 0;
    std::size_t last = text.size();
    while (first < last && isOneOf(text[first], blanks)) {
        ++first;
    }
    while (last > first && isOneOf(text[last - 1], blanks)) {
        --last;
    }
    if (first == last) {
        return false;
    }
    number = 0;
    for (std::size_t index = first; index < last; ++index) {
        if (!isOneOf(text[index], digits)) {
            return false;
        }
        number = number * 10 + static_cast<std::uint64_t>(text[index] - u'0');
        if (number > 0xFFFFFFFF) {
            // Every further digit makes it larger, but has to be a digit.
            number = 0x100000000;
        }
    }
    return number <= 0xFFFFFFFF;
}

Extents expected(const Texts& texts) {
    Extents extents;
    for (const std::u16string& text : texts) {
        std::uint64_t number = unlimited;
        if (text != u":" && !isName(text) && !read(text, number)) {
            return {};
        }
        extents.push_back(number);
    }
    return extents;
}

constexpr std::u16string_view usual[] = {
    u":",         u"1",      u"n",    u" 3 ", u"4294967295", u"4294967296", u"",        u"x-1", u"_a",
    u"a_1",       u"::",     u"0x10", u"-1",  u"+1",         u"1e3",        u"\t7\r\n", u"007", u"99999999999999999999",
    u"N\u00e4me", u"\uff11",
};

std::u16string size(fuzz::Input& input) {
    constexpr std::u16string_view units = u"0123456789 \t\n\v\f\r:_abzAZ-+.";
    switch (input.below(3)) {
        case 0:
            return std::u16string(input.oneOf(usual));
        case 1:
            return input.text(12);
        default:
            break;
    }
    std::u16string text;
    for (std::size_t count = input.below(12); count > 0; --count) {
        text.push_back(units[input.below(units.size())]);
    }
    return text;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size_) {
    fuzz::Input input(data, size_);
    Texts texts;
    for (std::size_t count = input.below(8); count > 0; --count) {
        texts.push_back(size(input));
    }
    fuzz::expectEqual(ZELKContextData::PropertyInfo::castSizeStringToIntegers(texts), expected(texts),
                      "the extents of " + fuzz::shown(texts));
    return 0;
}
