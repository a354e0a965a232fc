// Keys that a string alone cannot stand for, as they are written in a subscript.
#pragma once

#include <pybind11/pybind11.h>

#include <string_view>

#include "frontends/completion/item.h"
#include "host/array_library.h"

namespace contextdata::python {

/// The keys of an exact dict that are bytes, or tuples of texts, bytes, numbers and constants, each of exactly that
/// type, and begin as `typed` does, blanks aside. They are written with the quotes and the bracket that `typed` begins
/// with. Sorted. None for any other value. Runs no code of the keys.
completion::Items writtenKeys(const qxSharedArray& value, std::u16string_view typed);

}  // namespace contextdata::python
