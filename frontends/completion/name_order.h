// The order of names: by code unit.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace contextdata::completion {

/// Whether a name comes before another. Names that are listed together often begin alike, so they are compared four
/// units at a time as long as they are the same.
inline bool comesBefore(std::u16string_view left, std::u16string_view right) noexcept {
    constexpr std::size_t unitsInBlock = sizeof(std::uint64_t) / sizeof(char16_t);
    const std::size_t common = std::min(left.size(), right.size());
    std::size_t place = 0;
    for (; place + unitsInBlock <= common; place += unitsInBlock) {
        if (std::memcmp(left.data() + place, right.data() + place, sizeof(std::uint64_t)) != 0) {
            break;
        }
    }
    for (; place < common; ++place) {
        if (left[place] != right[place]) {
            return left[place] < right[place];
        }
    }
    return left.size() < right.size();
}

}  // namespace contextdata::completion
