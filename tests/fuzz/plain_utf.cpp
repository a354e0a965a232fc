#include "tests/fuzz/plain_utf.h"

namespace fuzz {

std::optional<Points> pointsOf(std::u16string_view text) {
    Points points;
    for (std::size_t index = 0; index < text.size(); ++index) {
        const char32_t unit = text[index];
        if (unit < 0xD800 || unit > 0xDFFF) {
            points.push_back(unit);
            continue;
        }
        const bool isPair =
            unit <= 0xDBFF && index + 1 < text.size() && text[index + 1] >= 0xDC00 && text[index + 1] <= 0xDFFF;
        if (!isPair) {
            return std::nullopt;
        }
        points.push_back(0x10000 + (unit - 0xD800) * 0x400 + (static_cast<char32_t>(text[++index]) - 0xDC00));
    }
    return points;
}

std::optional<Points> pointsOf(std::string_view text) {
    Points points;
    for (std::size_t index = 0; index < text.size();) {
        const auto lead = static_cast<unsigned char>(text[index++]);
        int more = 0;
        char32_t point = lead;
        char32_t smallest = 0;
        if (lead >= 0xF0 && lead <= 0xF7) {
            more = 3, point = lead - 0xF0U, smallest = 0x10000;
        } else if (lead >= 0xE0 && lead <= 0xEF) {
            more = 2, point = lead - 0xE0U, smallest = 0x800;
        } else if (lead >= 0xC0 && lead <= 0xDF) {
            more = 1, point = lead - 0xC0U, smallest = 0x80;
        } else if (lead >= 0x80) {
            return std::nullopt;
        }
        for (; more > 0; --more) {
            const unsigned char next = index < text.size() ? static_cast<unsigned char>(text[index++]) : 0;
            if (next < 0x80 || next > 0xBF) {
                return std::nullopt;
            }
            point = point * 0x40 + (next - 0x80U);
        }
        if (point < smallest || point > 0x10FFFF || (point >= 0xD800 && point <= 0xDFFF)) {
            return std::nullopt;
        }
        points.push_back(point);
    }
    return points;
}

std::string utf8Of(const Points& points) {
    std::string text;
    const auto add = [&text](char32_t byte) { text.push_back(static_cast<char>(byte)); };
    for (const char32_t point : points) {
        if (point < 0x80) {
            add(point);
        } else if (point < 0x800) {
            add(0xC0 + point / 0x40), add(0x80 + point % 0x40);
        } else if (point < 0x10000) {
            add(0xE0 + point / 0x1000), add(0x80 + point / 0x40 % 0x40), add(0x80 + point % 0x40);
        } else {
            add(0xF0 + point / 0x40000), add(0x80 + point / 0x1000 % 0x40), add(0x80 + point / 0x40 % 0x40),
                add(0x80 + point % 0x40);
        }
    }
    return text;
}

std::u16string utf16Of(const Points& points) {
    std::u16string text;
    for (const char32_t point : points) {
        if (point < 0x10000) {
            text.push_back(static_cast<char16_t>(point));
        } else {
            text.push_back(static_cast<char16_t>(0xD800 + (point - 0x10000) / 0x400));
            text.push_back(static_cast<char16_t>(0xDC00 + (point - 0x10000) % 0x400));
        }
    }
    return text;
}

std::u16string wide(std::string_view text) { return utf16Of(pointsOf(text).value()); }
std::string narrow(std::u16string_view text) { return utf8Of(pointsOf(text).value()); }

std::u16string wideAscii(std::string_view text) {
    std::u16string result;
    for (const char c : text) {
        result.push_back(static_cast<unsigned char>(c) > 0x7F ? u'?' : static_cast<char16_t>(c));
    }
    return result;
}

std::string narrowAscii(std::u16string_view text) {
    std::string result;
    for (const char16_t unit : text) {
        result.push_back(unit > 0x7F ? '?' : static_cast<char>(unit));
    }
    return result;
}

}  // namespace fuzz
