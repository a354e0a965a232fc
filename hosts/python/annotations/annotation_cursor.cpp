#include "hosts/python/annotations/annotation_cursor.h"

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "hosts/python/annotations/annotation_string.h"

namespace python_host {

namespace {

bool isDigit(char c) noexcept { return c >= '0' && c <= '9'; }

/// Letters outside ASCII are taken for parts of names; whether they are does not matter, since a name that is none is
/// not found.
bool beginsName(char c) noexcept {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || static_cast<unsigned char>(c) >= 0x80;
}

bool continuesName(char c) noexcept { return beginsName(c) || isDigit(c); }

bool isBlank(char c) noexcept { return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f'; }

bool isQuote(char c) noexcept { return c == '\'' || c == '"'; }

char closingOf(char opening) noexcept {
    switch (opening) {
        case '(':
            return ')';
        case '[':
            return ']';
        case '{':
            return '}';
        default:
            return '\0';
    }
}

}  // namespace

void AnnotationCursor::skipBlanks() noexcept {
    while (isBlank(at(position_))) {
        ++position_;
    }
}

bool AnnotationCursor::atEnd() noexcept {
    skipBlanks();
    return position_ >= text_.size();
}

char AnnotationCursor::peek() noexcept {
    skipBlanks();
    return at(position_);
}

bool AnnotationCursor::take(std::string_view sign) noexcept {
    skipBlanks();
    if (!text_.substr(position_).starts_with(sign)) {
        return false;
    }
    position_ += sign.size();
    return true;
}

std::string_view AnnotationCursor::takeDottedName() noexcept {
    skipBlanks();
    const std::size_t start = position_;
    std::size_t end = start;
    std::size_t next = start;
    while (beginsName(at(next))) {
        end = next;
        while (continuesName(at(end))) {
            ++end;
        }
        if (at(end) != '.') {
            break;
        }
        next = end + 1;
    }
    position_ = end;
    return text_.substr(start, end - start);
}

std::size_t AnnotationCursor::prefixLength() const noexcept {
    std::size_t length = 0;
    while (length < 2 && std::string_view("rbuRBU").find(at(position_ + length)) != std::string_view::npos &&
           at(position_ + length) != '\0') {
        ++length;
    }
    return length;
}

bool AnnotationCursor::atString() noexcept {
    skipBlanks();
    return isQuote(at(position_ + prefixLength()));
}

bool AnnotationCursor::skipString() noexcept {
    const char quote = at(position_);
    for (++position_; position_ < text_.size(); ++position_) {
        if (at(position_) == '\\') {
            ++position_;
        } else if (at(position_) == quote) {
            ++position_;
            return true;
        }
    }
    return false;
}

Ref AnnotationCursor::takeString() {
    skipBlanks();
    const std::string_view prefix = text_.substr(position_, prefixLength());
    position_ += prefix.size();
    const std::size_t start = position_ + 1;
    if (!skipString()) {
        return {};
    }
    const std::string_view inner = text_.substr(start, position_ - start - 1);
    // Two quotes and a third one at once begin a string of many lines.
    return inner.empty() && isQuote(at(position_)) ? Ref() : stringOf(prefix, inner);
}

bool AnnotationCursor::atNumber() noexcept {
    const char c = peek();
    return isDigit(c) || ((c == '-' || c == '+') && isDigit(at(position_ + 1)));
}

Ref AnnotationCursor::takeNumber() {
    skipBlanks();
    const std::size_t start = position_++;
    while (continuesName(at(position_)) || at(position_) == '.') {
        ++position_;
    }
    const std::string digits(textSince(start));
    char* end = nullptr;
    constexpr int byPrefix = 0;
    Ref number = Ref::steal(PyLong_FromString(digits.c_str(), &end, byPrefix));
    if (!number) {
        PyErr_Clear();
        return {};
    }
    return *end == '\0' ? number : Ref();
}

bool AnnotationCursor::takeBalanced(std::string_view& taken) noexcept {
    skipBlanks();
    const std::size_t start = position_;
    std::string awaited;
    while (position_ < text_.size()) {
        const char c = at(position_);
        if (isQuote(c)) {
            if (!skipString()) {
                return false;
            }
            continue;
        }
        if (awaited.empty() && (c == ',' || c == ']' || c == ')' || c == '}')) {
            break;
        }
        if (closingOf(c) != '\0') {
            awaited.push_back(closingOf(c));
        } else if (c == ']' || c == ')' || c == '}') {
            if (awaited.back() != c) {
                return false;
            }
            awaited.pop_back();
        }
        ++position_;
    }
    taken = textSince(start);
    taken = taken.substr(0, taken.find_last_not_of(" \t\n\r\f") + 1);
    return awaited.empty();
}

}  // namespace python_host
