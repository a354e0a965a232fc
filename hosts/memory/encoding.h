// Encodings, for the host's own use: no service is called.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace memory_host {

/// UTF-16 as UTF-8; empty for invalid text.
std::optional<std::string> utf8Of(std::u16string_view text);

/// UTF-8 as UTF-16, with replacement characters for what is invalid.
std::u16string utf16Of(std::string_view text);

}  // namespace memory_host
