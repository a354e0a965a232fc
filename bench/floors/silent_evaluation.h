// Silent evaluation by hand, for floors.
#pragma once

#include <string>

#include "host/array_library.h"

namespace bench {

/// What a text is worth, with all output diverted and errors disabled meanwhile; null when it cannot be evaluated.
/// `flag` goes to the interpreter as it is.
qxUniqueArray evaluatedSilently(const std::u16string& text, bool flag);

}  // namespace bench
