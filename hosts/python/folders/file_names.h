// Paths of the file system as UTF-16 text and back.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace python_host {

/// The path that a text spells in UTF-8; nothing for a text that no path can be (a lone surrogate, a zero character).
std::optional<std::filesystem::path> pathOfText(std::u16string_view text);

/// The same for a path in UTF-8.
std::optional<std::filesystem::path> pathOfText(std::string_view text);

/// The text of a path; nothing for one whose bytes are no UTF-8, which has no name in the host's text.
std::optional<std::u16string> textOfPath(const std::filesystem::path& path);

}  // namespace python_host
