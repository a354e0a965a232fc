// The keys that may stand in a subscript.
#pragma once

#include <string_view>

#include "frontends/completion/item.h"
#include "frontends/completion/language.h"
#include "frontends/completion/ranking.h"
#include "host/array_library.h"

namespace contextdata::completion {

/// The texts that are keys of a value, which is not null, as they stand in a string that `quote` opened.
///
/// They are the fields of the value that do not follow a dot; those of a structure by its own account, those of other
/// values when they are asked. A key that no such string can hold is left out, and so is one that cannot be chosen: a
/// table may have very many. The interrupt passes; a failure is no keys.
Items keysOf(const qxArray* value, char16_t quote, const Language& language, const Choice& choice);

/// The mark by which strings are written where a key was begun: the first one that was typed of it.
char16_t quoteOfKey(std::u16string_view typed) noexcept;

/// The same as they are written, in strings of `quote`.
Items wholeKeysOf(const qxArray* value, char16_t quote, const Language& language);

}  // namespace contextdata::completion
