// Values that are objects of the class system.
#pragma once

#include "host/array_library.h"
#include "host/class_system.h"
#include "host/interned.h"
#include "host/visibility.h"

/// Answers whether a value is an object of the current class system. Interpreter thread.
CONTEXTDATA_HOST_API bool omIsZELK(const qxArray* value);

/// Answers the canonical id of the value's class; the empty handle for a value that has none. Interpreter
/// thread; may throw any host failure or the interrupt.
CONTEXTDATA_HOST_API zelk::COSInternedID omGetCOSClassID(const qxArray* value);

/// Makes a scalar object that stands for a node of the class system, as authors see it (a namespace, say). `node` is
/// not empty. May throw any host failure or the interrupt.
CONTEXTDATA_HOST_API qxUniqueArray omCreateZELKScalar(const zelk::COSInterfacePtr& node);
