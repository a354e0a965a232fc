#include "hosts/python/evaluation/literals.h"
#include "hosts/python/errors.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <string>

namespace python_host {

namespace {

/// No number of a person's has so many digits, and reading one takes time by the square of them.
constexpr std::size_t digitLimit = 400;

bool isBasePrefix(const TextCursor& cursor) {
    return cursor.peek() == '0' && std::string_view("xXoObB").find(cursor.peek(1)) != std::string_view::npos;
}

/// Underscores stand between digits only.
bool separatesDigits(std::string_view digits) {
    return !digits.starts_with('_') && !digits.ends_with('_') && digits.find("__") == std::string_view::npos;
}

std::string_view takeDigits(TextCursor& cursor) {
    return cursor.takeWhile([](char c) { return isDecimalDigit(c) || c == '_'; });
}

struct Decimal {
    std::string text;
    bool isWhole = true;
    bool isValid = true;

    void append(std::string_view digits) {
        isValid = isValid && separatesDigits(digits);
        std::copy_if(digits.begin(), digits.end(), std::back_inserter(text), [](char c) { return c != '_'; });
    }
};

bool beginsExponent(const TextCursor& cursor) {
    const std::size_t sign = cursor.peek(1) == '+' || cursor.peek(1) == '-' ? 1 : 0;
    return (cursor.peek() == 'e' || cursor.peek() == 'E') && isDecimalDigit(cursor.peek(1 + sign));
}

Decimal readDecimal(TextCursor& cursor) {
    Decimal number;
    number.append(takeDigits(cursor));
    if (cursor.takeIf('.')) {
        number.isWhole = false;
        number.text.push_back('.');
        number.append(takeDigits(cursor));
    }
    if (beginsExponent(cursor)) {
        number.isWhole = false;
        number.text.push_back(cursor.take());
        if (!isDecimalDigit(cursor.peek())) {
            number.text.push_back(cursor.take());
        }
        number.append(takeDigits(cursor));
    }
    return number;
}

Ref makeReal(const std::string& text, bool isImaginary) {
    char* end = nullptr;
    const double value = PyOS_string_to_double(text.c_str(), &end, nullptr);
    if (end != text.c_str() + text.size() || PyErr_Occurred() != nullptr) {
        PyErr_Clear();
        return {};
    }
    return orNothing(isImaginary ? PyComplex_FromDoubles(0.0, value) : PyFloat_FromDouble(value));
}

Ref makeWhole(const std::string& text) {
    constexpr int baseByPrefix = 0;
    char* end = nullptr;
    return orNothing(PyLong_FromString(text.c_str(), &end, baseByPrefix));
}

std::optional<unsigned> valueOfDigit(char c, unsigned base) {
    unsigned value = base;
    if (isDecimalDigit(c)) {
        value = static_cast<unsigned>(c - '0');
    } else if (isAsciiLetter(c)) {
        value = static_cast<unsigned>((c | 0x20) - 'a') + 10;
    }
    return value < base ? std::optional(value) : std::nullopt;
}

/// The value of a literal while it is put together.
class TextBuilder {
public:
    TextBuilder(TextCursor& cursor, std::string_view prefix) : cursor_(cursor) {
        for (const char letter : prefix) {
            isRaw_ = isRaw_ || letter == 'r' || letter == 'R';
            isBytes_ = isBytes_ || letter == 'b' || letter == 'B';
        }
    }

    Ref read() {
        const char quote = cursor_.take();
        const std::string end(cursor_.takeIf(std::string(2, quote)) ? 3 : 1, quote);
        while (!cursor_.takeIf(end)) {
            if (cursor_.atEnd() || !readOne(end.size() == 3)) {
                return {};
            }
        }
        return isBytes_ ? makeBytes() : makeText();
    }

private:
    bool readOne(bool mayHoldLineEnds) {
        if (cursor_.peek() == '\\') {
            cursor_.skip();
            return !cursor_.atEnd() && (isRaw_ ? readRawEscape() : readEscape());
        }
        return (mayHoldLineEnds || !isLineEnd(cursor_.peek())) && readPlain();
    }

    static bool isLineEnd(char c) { return c == '\n' || c == '\r'; }

    bool readPlain() {
        const auto lead = static_cast<unsigned char>(cursor_.take());
        if (lead == '\r') {
            cursor_.takeIf('\n');
            points_.push_back(U'\n');
            return true;
        }
        if (lead < 0x80) {
            points_.push_back(lead);
            return true;
        }
        return !isBytes_ && readMultibyte(lead);
    }

    /// The text is valid UTF-8.
    bool readMultibyte(unsigned char lead) {
        const unsigned continuations = lead >= 0xF0 ? 3 : (lead >= 0xE0 ? 2 : 1);
        char32_t point = lead & (0x3FU >> continuations);
        for (unsigned index = 0; index < continuations; ++index) {
            if (cursor_.atEnd()) {
                return false;
            }
            point = (point << 6) | (static_cast<unsigned char>(cursor_.take()) & 0x3FU);
        }
        points_.push_back(point);
        return true;
    }

    bool readRawEscape() {
        points_.push_back(U'\\');
        return readPlain();
    }

    bool readEscape() {
        const char letter = cursor_.peek();
        if (isLineEnd(letter)) {
            cursor_.skip();
            if (letter == '\r') {
                cursor_.takeIf('\n');
            }
            return true;
        }
        if (valueOfDigit(letter, 8)) {
            return readOctal();
        }
        constexpr std::string_view simple = "\\'\"abfnrtv";
        constexpr std::string_view meanings = "\\'\"\a\b\f\n\r\t\v";
        if (const std::size_t found = simple.find(letter); found != std::string_view::npos) {
            cursor_.skip();
            points_.push_back(static_cast<unsigned char>(meanings[found]));
            return true;
        }
        return readLongEscape(letter);
    }

    bool readLongEscape(char letter) {
        if (letter == 'x') {
            return readHexadecimal(2);
        }
        if (!isBytes_ && letter == 'N') {
            return false;
        }
        if (!isBytes_ && (letter == 'u' || letter == 'U')) {
            return readHexadecimal(letter == 'u' ? 4 : 8);
        }
        // No escape at all: the backslash stands for itself.
        return readRawEscape();
    }

    bool readOctal() {
        char32_t value = 0;
        for (int count = 0; count < 3 && valueOfDigit(cursor_.peek(), 8); ++count) {
            value = value * 8 + *valueOfDigit(cursor_.take(), 8);
        }
        points_.push_back(isBytes_ ? value & 0xFFU : value);
        return true;
    }

    bool readHexadecimal(int count) {
        cursor_.skip();
        char32_t value = 0;
        for (int index = 0; index < count; ++index) {
            const auto digit = valueOfDigit(cursor_.peek(), 16);
            if (!digit) {
                return false;
            }
            cursor_.skip();
            value = value * 16 + *digit;
        }
        points_.push_back(value);
        return value <= 0x10FFFF;
    }

    Ref makeText() const {
        return orNothing(
            PyUnicode_FromKindAndData(PyUnicode_4BYTE_KIND, points_.data(), static_cast<Py_ssize_t>(points_.size())));
    }

    Ref makeBytes() const {
        std::string bytes;
        bytes.reserve(points_.size());
        for (const char32_t point : points_) {
            bytes.push_back(static_cast<char>(static_cast<unsigned char>(point)));
        }
        return orNothing(PyBytes_FromStringAndSize(bytes.data(), static_cast<Py_ssize_t>(bytes.size())));
    }

    TextCursor& cursor_;
    bool isRaw_ = false;
    bool isBytes_ = false;
    std::u32string points_;
};

}  // namespace

Ref readNumber(TextCursor& cursor) {
    if (isBasePrefix(cursor)) {
        const std::string_view digits = cursor.takeWhile(isNameByte);
        return digits.size() > digitLimit ? Ref() : makeWhole(std::string(digits));
    }
    const Decimal decimal = readDecimal(cursor);
    const bool isImaginary = cursor.takeIf('j') || cursor.takeIf('J');
    // A name may not begin where a number ends.
    if (!decimal.isValid || decimal.text.size() > digitLimit || isNameByte(cursor.peek())) {
        return {};
    }
    return decimal.isWhole && !isImaginary ? makeWhole(decimal.text) : makeReal(decimal.text, isImaginary);
}

bool isTextPrefix(std::string_view letters) {
    std::string lower(letters);
    std::transform(lower.begin(), lower.end(), lower.begin(), [](char c) { return static_cast<char>(c | 0x20); });
    return lower == "r" || lower == "u" || lower == "b" || lower == "rb" || lower == "br";
}

Ref readText(TextCursor& cursor, std::string_view prefix) { return TextBuilder(cursor, prefix).read(); }

}  // namespace python_host
