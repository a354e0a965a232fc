// Comparison with an oracle: a disagreement is shown and ends the process, as a fuzzer wants it.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <optional>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace fuzz {

inline std::string shown(bool value) { return value ? "yes" : "no"; }
inline std::string shown(std::string_view text) { return "\"" + std::string(text) + "\""; }
inline std::string shown(const std::string& text) { return shown(std::string_view(text)); }
inline std::string shown(const char* text) { return shown(std::string_view(text)); }
inline std::string shown(std::u16string_view text) {
    std::ostringstream out;
    out << '"';
    for (const char16_t unit : text) {
        if (unit >= u' ' && unit < 0x7F) {
            out << static_cast<char>(unit);
        } else {
            out << "\\x" << std::hex << static_cast<unsigned>(unit) << ';';
        }
    }
    out << '"';
    return out.str();
}
inline std::string shown(const std::u16string& text) { return shown(std::u16string_view(text)); }
inline std::string shown(const void* pointer) {
    std::ostringstream out;
    out << pointer;
    return out.str();
}
template <class Number>
requires std::is_arithmetic_v<Number> std::string shown(Number value) { return std::to_string(value); }
template <class Element>
std::string shown(const std::vector<Element>& elements) {
    std::string text = "[";
    for (const auto& element : elements) {
        text += (text.size() > 1 ? ", " : "") + shown(element);
    }
    return text + "]";
}
template <class Element>
std::string shown(const std::set<Element>& elements) {
    return shown(std::vector<Element>(elements.begin(), elements.end()));
}
template <class Value>
std::string shown(const std::optional<Value>& value) {
    return value ? shown(*value) : "nothing";
}

[[noreturn]] inline void fail(const std::string& what) {
    std::fprintf(stderr, "DISAGREEMENT: %s\n", what.c_str());
    std::abort();
}

inline void expect(bool holds, const std::string& what) {
    if (!holds) {
        fail(what);
    }
}

template <class Found, class Expected>
void expectEqual(const Found& found, const Expected& expected, const std::string& what) {
    if (!(found == expected)) {
        fail(what + "\n  answered: " + shown(found) + "\n  expected: " + shown(expected));
    }
}

}  // namespace fuzz
