// The strings of source code.
#pragma once

#include <Python.h>

#include <string_view>

#include "hosts/python/references.h"

namespace python_host {

/// The str or bytes that a string of source code denotes, by its prefix and what stands between its quotes. Empty for
/// what is no string, and for escapes that no representation of a text uses.
Ref stringOf(std::string_view prefix, std::string_view inner);

}  // namespace python_host
