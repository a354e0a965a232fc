// Numbers and texts as they are written in source code.
#pragma once

#include <string_view>

#include "hosts/python/evaluation/text_cursor.h"
#include "hosts/python/references.h"

namespace python_host {

/// Reads the number at which the cursor stands; empty when it is none, or one of absurd length. No Python error is
/// left.
Ref readNumber(TextCursor& cursor);

/// Whether letters before a quote make a text of it whose value stands in the source as it is: all but formatted ones.
bool isTextPrefix(std::string_view letters);

/// Reads a text from its quote on, the letters before it having been read. Empty when it does not end, and when its
/// value cannot be told without the tables of character names. No Python error is left.
Ref readText(TextCursor& cursor, std::string_view prefix);

}  // namespace python_host
