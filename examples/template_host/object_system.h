// The classes by their numbers, which the dispatcher hands out.
#pragma once

#include "host/object_system.h"

namespace template_host {

/// One for the process.
ObjectSystem& objectSystem();

}  // namespace template_host
