// The values of expressions.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

#include "frontends/completion/rules.h"
#include "host/array_library.h"

namespace contextdata::completion {

/// What is longer is typed by nobody; hosts may take a time for it that grows faster than its length.
inline constexpr std::size_t longestExpression = 10'000;

/// Whether the names of a chain, which point into one text, lie so far apart.
bool isTooLong(std::span<const std::u16string_view> chain) noexcept;

/// The value that a text denotes in the host's current workspace; empty when it denotes none, or none that can be had
/// by the rules, and when it is too long. The interrupt passes as far as the library lets it; other failures are no
/// value. Interpreter thread.
///
/// Where the rules let members be read one by one and run no code, a text that begins with a name is walked first, as
/// far as members go; a text whose first name is no variable has no value then.
qxSharedArray valueOfExpression(std::u16string_view expression, const Rules& rules);

/// The value at the end of a chain that begins with a variable, the value of which is `root`.
qxSharedArray valueAtEnd(const qxSharedArray& root, std::span<const std::u16string_view> chain, const Rules& rules);

}  // namespace contextdata::completion
