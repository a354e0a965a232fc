#include "hosts/python/annotations/annotation_string.h"

#include <charconv>
#include <optional>
#include <string>

#include "hosts/python/python_text.h"
#include "hosts/python/utf.h"

namespace python_host {

namespace {

struct Prefix {
    bool isRaw = false;
    bool isBytes = false;
};

std::optional<Prefix> readPrefix(std::string_view text) {
    Prefix prefix;
    bool isText = false;
    for (const char c : text) {
        bool& flag = c == 'r' || c == 'R' ? prefix.isRaw : c == 'b' || c == 'B' ? prefix.isBytes : isText;
        if (flag) {
            return std::nullopt;
        }
        flag = true;
    }
    return isText && text.size() > 1 ? std::nullopt : std::optional(prefix);
}

/// How many hexadecimal digits follow the letter of an escape.
std::size_t digitsAfter(char letter, bool isBytes) {
    switch (letter) {
        case 'x':
            return 2;
        case 'u':
            return isBytes ? 0 : 4;
        case 'U':
            return isBytes ? 0 : 8;
        default:
            return 0;
    }
}

std::optional<char32_t> simpleEscape(char letter) {
    constexpr std::string_view letters = "\\'\"nrtabfv";
    constexpr std::string_view meanings = "\\'\"\n\r\t\a\b\f\v";
    const std::size_t place = letters.find(letter);
    return place == std::string_view::npos ? std::nullopt : std::optional(static_cast<char32_t>(meanings[place]));
}

/// The point that an escape denotes; takes its letter and digits off the text.
std::optional<char32_t> takeEscape(std::string_view& text, bool isBytes) {
    if (text.empty()) {
        return std::nullopt;
    }
    const char letter = text.front();
    text.remove_prefix(1);
    const std::size_t count = digitsAfter(letter, isBytes);
    if (count == 0) {
        return simpleEscape(letter);
    }
    if (text.size() < count) {
        return std::nullopt;
    }
    std::uint32_t point = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + count, point, 16);
    if (error != std::errc() || end != text.data() + count || point > 0x10FFFF || isSurrogate(point)) {
        return std::nullopt;
    }
    text.remove_prefix(count);
    return static_cast<char32_t>(point);
}

std::optional<std::string> unescaped(std::string_view text, bool isBytes) {
    std::string result;
    while (!text.empty()) {
        const char c = text.front();
        text.remove_prefix(1);
        if (c != '\\') {
            result.push_back(c);
            continue;
        }
        const auto point = takeEscape(text, isBytes);
        if (!point) {
            return std::nullopt;
        }
        if (isBytes) {
            result.push_back(static_cast<char>(static_cast<unsigned char>(*point)));
        } else {
            appendUtf8(result, *point);
        }
    }
    return result;
}

Ref makeBytes(const std::string& bytes) {
    Ref object = Ref::steal(PyBytes_FromStringAndSize(bytes.data(), static_cast<Py_ssize_t>(bytes.size())));
    if (!object) {
        PyErr_Clear();
    }
    return object;
}

}  // namespace

Ref stringOf(std::string_view prefix, std::string_view inner) {
    const auto kind = readPrefix(prefix);
    if (!kind || inner.find('\n') != std::string_view::npos) {
        return {};
    }
    const auto text = kind->isRaw ? std::optional(std::string(inner)) : unescaped(inner, kind->isBytes);
    if (!text) {
        return {};
    }
    return kind->isBytes ? makeBytes(*text) : Ref::steal(makeText(*text));
}

}  // namespace python_host
