// The floor of the class model: the same records as the library's, collected by hand from plain data.
//
// Nothing is asked of the host but the conversion of each text, which the library asks for too, and nothing is guarded.
// The records are allocated as the library allocates them.
#pragma once

#include <vector>

#include "bench/floors/class_shapes.h"
#include "contextdata/method_info.h"
#include "contextdata/property_info.h"

namespace bench {

/// The public methods of a class and of all it derives from, one listing for every path.
std::vector<ZELKContextData::MethodInfo> floorMethods(const PlainNode& cls);

/// The public properties, each name once.
std::vector<ZELKContextData::PropertyInfo> floorProperties(const PlainNode& cls);

}  // namespace bench
