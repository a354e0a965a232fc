// Conversions. The host's 8-bit encoding is UTF-8; what ASCII cannot hold becomes a question mark, and half a character
// of UTF-16 the replacement character.
#include "host/i18n.h"

#include <algorithm>
#include <boost/locale/encoding_utf.hpp>
#include <iterator>

#include "hosts/memory/encoding.h"
#include "hosts/memory/watch.h"

std::optional<std::string> memory_host::utf8Of(std::u16string_view text) {
    using boost::locale::conv::utf_to_utf;
    try {
        return utf_to_utf<char>(text.data(), text.data() + text.size(), boost::locale::conv::stop);
    } catch (const boost::locale::conv::conversion_error&) {
        return std::nullopt;
    }
}

std::u16string memory_host::utf16Of(std::string_view text) {
    std::u16string wide;
    for (const char *next = text.data(), *end = next + text.size(); next != end;) {
        const boost::locale::utf::code_point point = boost::locale::utf::utf_traits<char>::decode(next, end);
        const bool isValid = boost::locale::utf::is_valid_codepoint(point);
        boost::locale::utf::utf_traits<char16_t>::encode(isValid ? point : U'\uFFFD', std::back_inserter(wide));
    }
    return wide;
}

namespace fl::i18n {

namespace {

using boost::locale::conv::conversion_error;
using boost::locale::conv::stop;
using boost::locale::conv::utf_to_utf;
using memory_host::enter;
using memory_host::Service;

constexpr char16_t lastAscii = 0x7F;

/// One pass without a branch, which compilers turn into a few wide instructions.
bool isAscii(std::string_view text) {
    unsigned char seen = 0;
    for (const char unit : text) {
        seen |= static_cast<unsigned char>(unit);
    }
    return seen <= lastAscii;
}

std::u16string widened(std::string_view ascii) {
    std::u16string wide(ascii.size(), u'\0');
    std::transform(ascii.begin(), ascii.end(), wide.begin(),
                   [](char unit) { return static_cast<char16_t>(static_cast<unsigned char>(unit)); });
    return wide;
}

constexpr bool isHighSurrogate(char16_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
constexpr bool isLowSurrogate(char16_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

/// The text with a replacement character in the place of every surrogate that stands alone.
std::u16string mended(std::u16string_view text) {
    std::u16string whole(text);
    for (std::size_t index = 0; index < whole.size(); ++index) {
        const bool isPair =
            isHighSurrogate(whole[index]) && index + 1 < whole.size() && isLowSurrogate(whole[index + 1]);
        if (isPair) {
            ++index;
        } else if (isHighSurrogate(whole[index]) || isLowSurrogate(whole[index])) {
            whole[index] = u'\uFFFD';
        }
    }
    return whole;
}

}  // namespace

std::string to_string(std::u16string_view text) {
    enter(Service::toString);
    std::optional<std::string> narrow = memory_host::utf8Of(text);
    if (!narrow) {
        throw ConversionException();
    }
    return *std::move(narrow);
}

std::string to_string(std::u16string_view text, const codecvt_ustring_to_ascii& converter) {
    enter(Service::toString);
    std::string narrow;
    narrow.reserve(text.size());
    for (const char16_t unit : text) {
        if (unit > lastAscii && converter.refuses()) {
            throw ConversionException();
        }
        narrow.push_back(unit > lastAscii ? '?' : static_cast<char>(unit));
    }
    return narrow;
}

std::string to_string(std::u16string_view text, const codecvt_ustring_to_string& converter) {
    enter(Service::toString);
    std::optional<std::string> narrow = memory_host::utf8Of(converter.refuses() ? std::u16string(text) : mended(text));
    if (!narrow) {
        throw ConversionException();
    }
    return *std::move(narrow);
}

std::u16string to_ustring(std::string_view text) {
    enter(Service::toUstring, text);
    if (isAscii(text)) {
        return widened(text);
    }
    try {
        return utf_to_utf<char16_t>(text.data(), text.data() + text.size(), stop);
    } catch (const conversion_error&) {
        throw ConversionException();
    }
}

std::u16string to_ustring(std::string_view text, const codecvt_ascii_to_ustring& converter) {
    enter(Service::toUstring, text);
    if (isAscii(text)) {
        return widened(text);
    }
    if (converter.refuses()) {
        throw ConversionException();
    }
    std::string substituted(text);
    std::replace_if(
        substituted.begin(), substituted.end(), [](char unit) { return static_cast<unsigned char>(unit) > lastAscii; },
        '?');
    return widened(substituted);
}

}  // namespace fl::i18n
