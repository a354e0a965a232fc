// What the text up to the cursor asks for: what a chain of names leads to, a module, a key, an argument, a file.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace contextdata::completion {

/// Why a text offers nothing.
enum class Refusal {
    none,
    noName,           ///< no name is being typed, and none is awaited
    insideString,     ///< the cursor stands in a string literal, f-strings included
    insideComment,    ///< the cursor stands in a comment
    afterNumber,      ///< the cursor stands in a number, or the dot follows one
    needsEvaluation,  ///< what stands before the dot is no chain of names: a call, a subscript
    danglingDot,      ///< a dot with no name before it
};

/// A phrase for people ("in a string"); empty for `none`. Permanent, zero-terminated.
const char* textOf(Refusal refusal) noexcept;

/// What may stand at the cursor.
enum class Wanted {
    nothing,
    members,              ///< what follows the chain and a dot
    membersOfExpression,  ///< what follows the value of `expression` and a dot
    names,                ///< what the text can name without a dot
    modules,              ///< the modules in the one that the chain names, or outermost ones when it is empty
    importedNames,        ///< what code may take from the module that the chain names
    keys,       ///< the keys of the value of `expression`, or of the chain, that the string at the cursor may hold
    wholeKeys,  ///< the same as they are written, quotes and all
    arguments,  ///< the names of arguments in a call of the chain; when one was begun, names as well
    files,      ///< what lies in a folder
};

/// What was read. Its views point into the text, which has to stand as long as they are looked at.
struct ParsedText {
    /// Why no plain chain of names ends at the cursor. Something else than members may be wanted there even so.
    Refusal refusal = Refusal::noName;
    /// What is offered; decided by the text alone, so perhaps there is no such thing.
    Wanted wanted = Wanted::nothing;
    /// The names before the last dot, never empty where members are wanted; where something else is, see there. They
    /// point into the text that was parsed.
    std::vector<std::u16string_view> chain;
    /// What was typed of the wanted name up to the cursor; perhaps empty. Points into the text. Of a key or file it is
    /// the text as it stands in the string, escapes and folders included; of a whole key, all behind the bracket.
    std::u16string_view fragment;
    /// The range that a chosen name replaces, in UTF-16 units: from the fragment's start to the cursor.
    /// @{
    std::size_t start = 0;
    std::size_t end = 0;
    /// @}
    /// What has the members or keys, when it is more than a chain of names; empty where the chain says all. Points into
    /// the text, or is a literal of the same type.
    std::u16string_view expression;
    /// Whether code would have to run for the value of `expression`: a call, an operator.
    bool runsCode = false;
    /// The mark that opened the string of a key or file.
    char16_t quote = 0;
    /// Of a key, all that was typed behind the bracket.
    std::u16string_view wholeKey;
    /// What stands in the call before the cursor: the names of arguments.
    std::vector<std::u16string_view> given;
    std::size_t positions = 0;  ///< how many arguments go by their position
};

/// Reads the text from its start to `cursor` (UTF-16 units; beyond the end means the end) and never looks further.
///
/// Quotes and comments are tracked from the start, so a part of a larger text must begin outside of both. Blanks
/// may stand around a dot, line ends may not. Any unit from 0x80 on counts as part of a name. Never throws, save
/// `std::bad_alloc`. Any thread; linear in the text before the cursor.
ParsedText parse(std::u16string_view text, std::size_t cursor);

}  // namespace contextdata::completion
