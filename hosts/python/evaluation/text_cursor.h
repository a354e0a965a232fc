// A place in a UTF-8 text that is read from front to end.
#pragma once

#include <cstddef>
#include <string_view>

namespace python_host {

class TextCursor {
public:
    explicit TextCursor(std::string_view text) noexcept : text_(text) {}

    bool atEnd() const noexcept { return position_ == text_.size(); }
    /// The next byte, or the one that follows in some distance; zero past the end.
    char peek(std::size_t ahead = 0) const noexcept {
        return position_ + ahead < text_.size() ? text_[position_ + ahead] : '\0';
    }
    /// The text holds so many bytes more, at least.
    void skip(std::size_t count = 1) noexcept { position_ += count; }
    char take() noexcept { return text_[position_++]; }
    bool takeIf(char expected) noexcept {
        const bool found = !atEnd() && peek() == expected;
        position_ += found ? 1 : 0;
        return found;
    }
    bool takeIf(std::string_view expected) noexcept {
        const bool found = rest().starts_with(expected);
        position_ += found ? expected.size() : 0;
        return found;
    }
    std::string_view rest() const noexcept { return text_.substr(position_); }

    template <class Test>
    std::string_view takeWhile(Test test) {
        const std::size_t begin = position_;
        while (!atEnd() && test(text_[position_])) {
            ++position_;
        }
        return text_.substr(begin, position_ - begin);
    }

private:
    std::string_view text_;
    std::size_t position_ = 0;
};

constexpr bool isDecimalDigit(char c) noexcept { return c >= '0' && c <= '9'; }
constexpr bool isAsciiLetter(char c) noexcept { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
constexpr bool isNameStart(char c) noexcept {
    return isAsciiLetter(c) || c == '_' || (static_cast<unsigned char>(c) & 0x80) != 0;
}
constexpr bool isNameByte(char c) noexcept { return isNameStart(c) || isDecimalDigit(c); }

}  // namespace python_host
