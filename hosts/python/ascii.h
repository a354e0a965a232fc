// Widening of ASCII, which nearly every text that a host converts consists of.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>

namespace python_host {

namespace internal {

using Block = std::array<unsigned char, sizeof(std::uint64_t)>;

/// Widens the bytes of one block, and returns them. By way of arrays of its own, which compilers turn into a few wide
/// instructions, as nothing else can lie there.
inline std::uint64_t widenBlock(const char* from, char16_t* to) noexcept {
    Block block;
    std::memcpy(block.data(), from, block.size());
    std::array<char16_t, block.size()> units;
    for (std::size_t place = 0; place < block.size(); ++place) {
        units[place] = block[place];
    }
    std::memcpy(to, units.data(), sizeof units);
    return std::bit_cast<std::uint64_t>(block);
}

}  // namespace internal

/// Each byte as a code unit; nothing when one of them is beyond ASCII.
///
/// Eight bytes at a time, the last block overlapping the one before: names are too short for loops that a compiler
/// would widen by itself.
inline std::optional<std::u16string> widenedAscii(std::string_view text) {
    constexpr std::size_t blockSize = sizeof(internal::Block);
    constexpr std::uint64_t highBits = 0x8080808080808080;

    std::u16string wide(text.size(), u'\0');
    std::uint64_t seen = 0;
    if (text.size() >= blockSize) {
        const std::size_t last = text.size() - blockSize;
        for (std::size_t index = 0; index < last; index += blockSize) {
            seen |= internal::widenBlock(text.data() + index, wide.data() + index);
        }
        seen |= internal::widenBlock(text.data() + last, wide.data() + last);
    } else {
        for (std::size_t index = 0; index < text.size(); ++index) {
            wide[index] = static_cast<unsigned char>(text[index]);
            seen |= wide[index];
        }
    }
    if ((seen & highBits) != 0) {
        return std::nullopt;
    }
    return wide;
}

}  // namespace python_host
