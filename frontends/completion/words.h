// Words of the typed language that are no names.
#pragma once

#include <string_view>

namespace contextdata::completion {

/// Whether a new value begins behind a word, so that a bracket there is neither a call nor a subscript of it.
bool beginsOperand(std::u16string_view word) noexcept;

/// Whether what stands behind a word is a name that somebody makes up.
bool introducesName(std::u16string_view word) noexcept;

/// Whether a word is a constant.
bool isConstantName(std::u16string_view word) noexcept;

/// Whether letters directly before a quote belong to the string.
bool isStringPrefix(std::u16string_view word) noexcept;

}  // namespace contextdata::completion
