// What an author attached to a property, as attributes of the class system.
#pragma once

#include "host/class_system.h"
#include "hosts/python/references.h"

namespace python_host {

/// The attribute of a value. Exact booleans, numbers and texts show themselves; of anything else it can be told only
/// that it is there.
zelk::COSAttributePtr attributeOf(Ref value);

}  // namespace python_host
