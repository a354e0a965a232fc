// What the text up to the cursor asks for: a chain of names and the fragment that follows its last dot.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace contextdata::completion {

/// Why a text offers nothing.
enum class Refusal {
    none,
    noDot,            ///< no dotted chain ends at the cursor
    insideString,     ///< the cursor stands in a string literal, f-strings included
    insideComment,    ///< the cursor stands in a comment
    afterNumber,      ///< the cursor stands in a number, or the dot follows one
    needsEvaluation,  ///< what stands before the dot is no chain of names: a call, a subscript, a literal
    danglingDot,      ///< a dot with no name before it
};

/// A phrase for people ("in a string"); empty for `none`. Permanent, zero-terminated.
const char* textOf(Refusal refusal) noexcept;

struct ParsedText {
    Refusal refusal = Refusal::noDot;
    /// The names before the last dot, never empty unless refused. They point into the text that was parsed.
    std::vector<std::u16string_view> chain;
    /// What was typed after the last dot up to the cursor; perhaps empty. Points into the text.
    std::u16string_view fragment;
    /// The range that a chosen name replaces, in UTF-16 units: from the fragment's start to the cursor.
    std::size_t start = 0;
    std::size_t end = 0;
};

/// Reads the text from its start to `cursor` (UTF-16 units; beyond the end means the end) and never looks further.
///
/// Quotes and comments are tracked from the start, so a part of a larger text must begin outside of both. Blanks
/// may stand around a dot, line ends may not. Any unit from 0x80 on counts as part of a name. Never throws, save
/// `std::bad_alloc`. Any thread; linear in the text before the cursor.
ParsedText parse(std::u16string_view text, std::size_t cursor);

}  // namespace contextdata::completion
