// Reading properties of objects.
#pragma once

#include <cstddef>
#include <string_view>

#include "host/array_library.h"

namespace memory_host {

/// A claim on the value of a property in one element; null when it was given none. Throws a host failure when there is
/// no such element or property. The lists of an object that stands for a namespace are filled in by being read, and
/// show nothing themselves.
qxUniqueArray readProperty(const qxArray* object, std::size_t index, std::string_view name);

}  // namespace memory_host
