#include <algorithm>
#include <limits>
#include <stdexcept>
#include <string_view>

#include "contextdata/property_info.h"

namespace ZELKContextData {

namespace {

constexpr std::uint64_t anySize = std::numeric_limits<std::uint64_t>::max();

class SizeStringException : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

bool isLetter(char16_t unit) { return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z'); }
bool isDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }

bool isName(std::u16string_view text) {
    return !text.empty() && isLetter(text.front()) && std::all_of(text.begin(), text.end(), [](char16_t unit) {
        return isLetter(unit) || isDigit(unit) || unit == u'_';
    });
}

bool isBlank(char16_t unit) { return unit == u' ' || (unit >= u'\t' && unit <= u'\r'); }

std::u16string_view trimmed(std::u16string_view text) {
    while (!text.empty() && isBlank(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && isBlank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

std::uint64_t toNumber(std::u16string_view text) {
    const std::u16string_view digits = trimmed(text);
    if (digits.empty()) {
        throw SizeStringException("Empty");
    }
    if (!std::all_of(digits.begin(), digits.end(), isDigit)) {
        throw SizeStringException("Non number");
    }
    std::uint64_t number = 0;
    for (const char16_t digit : digits) {
        number = 10 * number + (digit - u'0');
        if (number > std::numeric_limits<std::uint32_t>::max()) {
            throw SizeStringException("stoul argument out of range");
        }
    }
    return number;
}

std::uint64_t toExtent(const std::u16string& text) { return text == u":" || isName(text) ? anySize : toNumber(text); }

}  // namespace

std::vector<std::uint64_t> PropertyInfo::castSizeStringToIntegers(const std::vector<std::u16string>& sizes) {
    std::vector<std::uint64_t> extents;
    extents.reserve(sizes.size());
    try {
        for (const std::u16string& size : sizes) {
            extents.push_back(toExtent(size));
        }
    } catch (const SizeStringException&) {
        extents.clear();
    }
    return extents;
}

}  // namespace ZELKContextData
