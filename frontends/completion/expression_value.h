// The values of chains with constant subscripts.
#pragma once

#include <cstddef>
#include <string_view>

#include "host/array_library.h"

namespace contextdata::completion {

/// What is longer is typed by nobody; hosts may take a time for it that grows faster than its length.
inline constexpr std::size_t longestExpression = 10'000;

/// The value that a text denotes in the host's current workspace; empty when it denotes none, or none that can be had
/// by the rules that the host evaluates by, and when it is too long. The interrupt passes as far as the library lets
/// it; other failures are no value. Interpreter thread.
qxSharedArray valueOfExpression(std::u16string_view expression);

}  // namespace contextdata::completion
