// Decisions made from the bytes of a case. Where they end, every decision is the first of its kind.
#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>

namespace fuzz {

class Input {
public:
    Input(const std::uint8_t* data, std::size_t size) noexcept : next_(data), end_(data + size) {}

    bool isAtEnd() const noexcept { return next_ == end_; }
    std::size_t left() const noexcept { return static_cast<std::size_t>(end_ - next_); }

    std::uint8_t byte() noexcept { return isAtEnd() ? std::uint8_t{0} : *next_++; }

    /// A number below `limit`, which is at most 65536.
    std::size_t below(std::size_t limit) noexcept {
        std::size_t number = byte();
        if (limit > 256) {
            number = number * 256 + byte();
        }
        return number % limit;
    }

    /// True once in so many times.
    bool once(std::size_t in) noexcept { return below(in) == in - 1; }

    template <class Choices>
    const auto& oneOf(const Choices& choices) noexcept {
        return *std::next(std::begin(choices), static_cast<std::ptrdiff_t>(below(std::size(choices))));
    }

    /// Any UTF-16 units, mostly ASCII ones.
    std::u16string text(std::size_t longest) {
        std::u16string units;
        for (std::size_t count = below(longest + 1); count > 0; --count) {
            const std::uint8_t first = byte();
            units.push_back(first < 0xE0 ? static_cast<char16_t>(first & 0x7F)
                                         : static_cast<char16_t>((first & 0xF8) << 8 | byte()));
        }
        return units;
    }

private:
    const std::uint8_t* next_;
    const std::uint8_t* end_;
};

}  // namespace fuzz
