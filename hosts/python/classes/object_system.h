// The live classes by number.
#pragma once

#include "host/object_system.h"

namespace python_host {

/// Numbers above 18 are those that values of a class carry, and belong to the class as long as it lives. The built-in
/// kinds of values are classes by their names ("double"), unrelated to each other and to all others.
ObjectSystem& objectSystem();

}  // namespace python_host
