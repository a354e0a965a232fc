// UTF-8 and UTF-16, one code point at a time.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace python_host {

/// ASCII is the same in every encoding that is spoken here.
inline bool isAscii(std::string_view text) noexcept {
    return std::none_of(text.begin(), text.end(),
                        [](char unit) { return (static_cast<unsigned char>(unit) & 0x80) != 0; });
}

inline constexpr char32_t replacementCharacter = 0xFFFD;

constexpr bool isSurrogate(char32_t point) noexcept { return point >= 0xD800 && point <= 0xDFFF; }
constexpr bool isHighSurrogate(char32_t point) noexcept { return point >= 0xD800 && point <= 0xDBFF; }
constexpr bool isLowSurrogate(char32_t point) noexcept { return point >= 0xDC00 && point <= 0xDFFF; }

inline void appendUtf8(std::string& text, char32_t point) {
    const auto put = [&text](char32_t byte) { text.push_back(static_cast<char>(static_cast<unsigned char>(byte))); };
    if (point < 0x80) {
        put(point);
    } else if (point < 0x800) {
        put(0xC0 | (point >> 6));
        put(0x80 | (point & 0x3F));
    } else if (point < 0x10000) {
        put(0xE0 | (point >> 12));
        put(0x80 | ((point >> 6) & 0x3F));
        put(0x80 | (point & 0x3F));
    } else {
        put(0xF0 | (point >> 18));
        put(0x80 | ((point >> 12) & 0x3F));
        put(0x80 | ((point >> 6) & 0x3F));
        put(0x80 | (point & 0x3F));
    }
}

inline void appendUtf16(std::u16string& text, char32_t point) {
    if (point < 0x10000) {
        text.push_back(static_cast<char16_t>(point));
        return;
    }
    const char32_t offset = point - 0x10000;
    text.push_back(static_cast<char16_t>(0xD800 + (offset >> 10)));
    text.push_back(static_cast<char16_t>(0xDC00 + (offset & 0x3FF)));
}

}  // namespace python_host
