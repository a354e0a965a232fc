// The files and folders that a path in a string may lead to.
#pragma once

#include <string_view>

#include "frontends/completion/item.h"
#include "frontends/completion/language.h"

namespace contextdata::completion {

/// Folders end so, and stand apart so in a path.
inline constexpr char16_t folderMark = u'/';

/// What a path ends in: the part behind the last mark of a folder.
std::u16string_view lastOfPath(std::u16string_view path) noexcept;

/// What lies in the folder of a path, relative to the working folder, and fits the end of the path; as it stands in a
/// string that `quote` opened. By rank and forgiving, or sorted by name (ranking.h). `path` is the text of that string
/// so far: one with escapes in it leads nowhere, and so does one that begins with `~`, which is a name for the file
/// system and a folder for people. What begins with a dot is offered once the dot was typed. The interrupt passes; a
/// failure is no files.
Items filesOf(std::u16string_view path, char16_t quote, const Language& language, bool isRanked);

}  // namespace contextdata::completion
