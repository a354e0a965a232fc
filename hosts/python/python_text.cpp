#include "hosts/python/python_text.h"

#include <algorithm>
#include <array>

#include "hosts/python/references.h"
#include "hosts/python/utf.h"

namespace python_host {

namespace {

/// Calls `take` for each code point; stops when it answers false, and answers whether it came to the end.
template <class Take>
bool eachPoint(PyObject* text, Take take) {
    const int kind = static_cast<int>(PyUnicode_KIND(text));
    const void* data = PyUnicode_DATA(text);
    const Py_ssize_t length = PyUnicode_GET_LENGTH(text);
    for (Py_ssize_t index = 0; index < length; ++index) {
        if (!take(static_cast<char32_t>(PyUnicode_READ(kind, data, index)))) {
            return false;
        }
    }
    return true;
}

char32_t withoutSurrogate(char32_t point) { return isSurrogate(point) ? replacementCharacter : point; }

std::string_view asciiOf(PyObject* text) {
    return {static_cast<const char*>(PyUnicode_DATA(text)), static_cast<std::size_t>(PyUnicode_GET_LENGTH(text))};
}

constexpr bool isDigit(char unit) { return unit >= '0' && unit <= '9'; }

/// Whether an ASCII character may stand in a name, by character.
constexpr auto mayStandInName = [] {
    std::array<bool, 128> table = {};
    for (std::size_t unit = 0; unit < table.size(); ++unit) {
        const std::size_t letter = unit | 0x20U;
        table[unit] = (letter >= 'a' && letter <= 'z') || isDigit(static_cast<char>(unit)) || unit == '_';
    }
    return table;
}();

/// Of a text within ASCII.
bool isAsciiIdentifier(std::string_view text) noexcept {
    return !text.empty() && !isDigit(text.front()) && std::all_of(text.begin(), text.end(), [](char unit) {
        return mayStandInName[static_cast<unsigned char>(unit)];
    });
}

}  // namespace

std::optional<std::string_view> utf8Of(PyObject* text, std::string& buffer) {
    if (!PyUnicode_IS_READY(text)) {
        return std::nullopt;
    }
    if (PyUnicode_IS_ASCII(text)) {
        return asciiOf(text);
    }
    buffer.clear();
    const bool complete = eachPoint(text, [&buffer](char32_t point) {
        if (isSurrogate(point)) {
            return false;
        }
        appendUtf8(buffer, point);
        return true;
    });
    return complete ? std::optional<std::string_view>(buffer) : std::nullopt;
}

std::string lossyUtf8Of(PyObject* text) {
    std::string result;
    if (PyUnicode_IS_READY(text) && PyUnicode_IS_ASCII(text)) {
        result = asciiOf(text);
    } else if (PyUnicode_IS_READY(text)) {
        eachPoint(text, [&result](char32_t point) {
            appendUtf8(result, withoutSurrogate(point));
            return true;
        });
    }
    return result;
}

std::u16string utf16Of(PyObject* text) {
    std::u16string result;
    if (!PyUnicode_IS_READY(text)) {
        return result;
    }
    if (PyUnicode_IS_ASCII(text)) {
        const std::string_view ascii = asciiOf(text);
        return {ascii.begin(), ascii.end()};
    }
    result.reserve(static_cast<std::size_t>(PyUnicode_GET_LENGTH(text)));
    eachPoint(text, [&result](char32_t point) {
        appendUtf16(result, point);
        return true;
    });
    return result;
}

std::size_t utf16LengthOf(PyObject* text) {
    std::size_t length = 0;
    if (PyUnicode_IS_READY(text)) {
        eachPoint(text, [&length](char32_t point) {
            length += point < 0x10000 ? 1 : 2;
            return true;
        });
    }
    return length;
}

PyObject* makeText(std::string_view utf8) noexcept {
    PyObject* text = PyUnicode_FromStringAndSize(utf8.data(), static_cast<Py_ssize_t>(utf8.size()));
    if (text == nullptr) {
        PyErr_Clear();
    }
    return text;
}

// Within ASCII without the interpreter's help, which looks up each letter: every key of every class comes by.
bool isIdentifier(PyObject* text) noexcept {
    if (!PyUnicode_IS_READY(text)) {
        return false;
    }
    return PyUnicode_IS_ASCII(text) ? isAsciiIdentifier(asciiOf(text)) : PyUnicode_IsIdentifier(text) == 1;
}

bool isIdentifier(std::string_view utf8) noexcept {
    if (isAscii(utf8)) {
        return isAsciiIdentifier(utf8);
    }
    const Ref text = Ref::steal(makeText(utf8));
    return text && isIdentifier(text.get());
}

bool isSpecialName(std::string_view name) noexcept {
    return name.size() > 4 && name.starts_with("__") && name.ends_with("__");
}

}  // namespace python_host
