// What a name looks like in the language of this host.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace memory_host {

/// The length of the name that a text begins with: a letter, then letters, digits and underscores; 0 when it begins
/// with none.
inline std::size_t nameLength(std::string_view text) noexcept {
    const auto isLetter = [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); };
    const auto mayFollow = [&](char c) { return isLetter(c) || (c >= '0' && c <= '9') || c == '_'; };
    if (text.empty() || !isLetter(text.front())) {
        return 0;
    }
    return static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), mayFollow) - text.begin());
}

}  // namespace memory_host
