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

namespace hosts {

/// Each byte as a code unit; nothing when one of them is beyond ASCII.
///
/// Eight bytes at a time, the last block overlapping the one before: names are too short for loops that a compiler would
/// widen by itself.
inline std::optional<std::u16string> widenedAscii(std::string_view text) {
    using Block = std::array<unsigned char, sizeof(std::uint64_t)>;
    constexpr std::uint64_t highBits = 0x8080808080808080;

    std::u16string wide(text.size(), u'\0');
    std::uint64_t seen = 0;
    const auto widen = [&](std::size_t index) {
        Block block;
        std::memcpy(block.data(), text.data() + index, block.size());
        for (std::size_t place = 0; place < block.size(); ++place) {
            wide[index + place] = block[place];
        }
        seen |= std::bit_cast<std::uint64_t>(block);
    };
    if (text.size() >= sizeof(Block)) {
        const std::size_t last = text.size() - sizeof(Block);
        for (std::size_t index = 0; index < last; index += sizeof(Block)) {
            widen(index);
        }
        widen(last);
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

}  // namespace hosts
