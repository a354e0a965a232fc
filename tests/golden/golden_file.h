// Golden files: reading them, and writing them anew.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace golden {

/// The mark of the cursor in a text.
inline constexpr std::u16string_view caret = u"‸";

struct Case {
    std::string rule;
    std::string inside;    ///< the class in whose code the text stands; empty for none
    std::string text;      ///< with the caret in it, or a class's name
    std::string expected;  ///< from "=>" on; every line ended
};

struct File {
    std::string preamble;  ///< all before the first case, as it stands
    std::string world;
    std::string sourceFile;  ///< empty when none is named
    bool describes = false;  ///< the texts are names of classes that are to be described
    bool isRanked = false;   ///< the answers go by rank
    std::vector<Case> cases;
};

/// Throws `std::runtime_error` for a file that is none.
File read(const std::filesystem::path& path);
void write(const std::filesystem::path& path, const File& file);

std::string narrow(std::u16string_view text);
std::u16string widen(const std::string& text);

}  // namespace golden
