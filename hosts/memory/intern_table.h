// The table behind interned names.
#pragma once

#include <string_view>

#include "host/interned.h"

namespace memory_host {

/// The permanent handle of a name, without passing for a service call. `name` is not empty. Any thread.
zelk::COSInternedID intern(std::string_view name);

}  // namespace memory_host
