// What makes a class object a defined class.
#pragma once

#include "host/class_system.h"

namespace contextdata::introspection {

/// Whether a class object, which may be null, has a definition.
inline bool isDefined(zelk::COSClass* cls) { return cls != nullptr && cls->getDefinition(false) != nullptr; }

}  // namespace contextdata::introspection
