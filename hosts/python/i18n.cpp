// Names are kept in UTF-8, since identifiers go beyond ASCII; the ASCII converters therefore carry UTF-8 too.
#include "host/i18n.h"

#include <optional>

#include "hosts/python/utf.h"

namespace fl::i18n {

namespace {

using python_host::appendUtf16;
using python_host::appendUtf8;
using python_host::isAscii;
using python_host::isHighSurrogate;
using python_host::isLowSurrogate;
using python_host::isSurrogate;
using python_host::replacementCharacter;

/// The code point at `position`, which moves behind it; nothing for a lone surrogate.
std::optional<char32_t> takePoint(std::u16string_view text, std::size_t& position) {
    const char32_t unit = text[position++];
    if (!isSurrogate(unit)) {
        return unit;
    }
    if (!isHighSurrogate(unit) || position == text.size() || !isLowSurrogate(text[position])) {
        return std::nullopt;
    }
    const char32_t low = text[position++];
    return 0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00);
}

int continuationCount(unsigned char lead) {
    if (lead >= 0xC2 && lead <= 0xDF) {
        return 1;
    }
    if (lead >= 0xE0 && lead <= 0xEF) {
        return 2;
    }
    return lead >= 0xF0 && lead <= 0xF4 ? 3 : -1;
}

bool isValidPoint(char32_t point, int continuations) {
    constexpr char32_t smallest[] = {0, 0x80, 0x800, 0x10000};
    return point >= smallest[continuations] && point <= 0x10FFFF && !isSurrogate(point);
}

/// As above for UTF-8; nothing for a byte that begins no valid sequence, behind which the position then stands.
std::optional<char32_t> takePoint(std::string_view text, std::size_t& position) {
    const auto lead = static_cast<unsigned char>(text[position++]);
    if (lead < 0x80) {
        return lead;
    }
    const int count = continuationCount(lead);
    if (count < 0 || text.size() - position < static_cast<std::size_t>(count)) {
        return std::nullopt;
    }
    char32_t point = lead & (0x3FU >> count);
    for (int index = 0; index < count; ++index) {
        const auto byte = static_cast<unsigned char>(text[position + static_cast<std::size_t>(index)]);
        if ((byte & 0xC0) != 0x80) {
            return std::nullopt;
        }
        point = (point << 6) | (byte & 0x3FU);
    }
    if (!isValidPoint(point, count)) {
        return std::nullopt;
    }
    position += static_cast<std::size_t>(count);
    return point;
}

char32_t orSubstitute(std::optional<char32_t> point, bool refuse) {
    if (!point && refuse) {
        throw ConversionException();
    }
    return point.value_or(replacementCharacter);
}

std::string narrow(std::u16string_view text, bool refuse) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t position = 0; position < text.size();) {
        appendUtf8(result, orSubstitute(takePoint(text, position), refuse));
    }
    return result;
}

std::u16string widen(std::string_view text, bool refuse) {
    if (isAscii(text)) {
        return {text.begin(), text.end()};
    }
    std::u16string result;
    result.reserve(text.size());
    for (std::size_t position = 0; position < text.size();) {
        appendUtf16(result, orSubstitute(takePoint(text, position), refuse));
    }
    return result;
}

}  // namespace

std::string to_string(std::u16string_view text) { return narrow(text, false); }

std::string to_string(std::u16string_view text, const codecvt_ustring_to_ascii& converter) {
    return narrow(text, converter.refuses());
}

std::string to_string(std::u16string_view text, const codecvt_ustring_to_string& converter) {
    return narrow(text, converter.refuses());
}

std::u16string to_ustring(std::string_view text) { return widen(text, false); }

std::u16string to_ustring(std::string_view text, const codecvt_ascii_to_ustring& converter) {
    return widen(text, converter.refuses());
}

}  // namespace fl::i18n
