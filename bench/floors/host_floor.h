// The second floor of the name lists: the same lists by hand over the host's own walks.
//
// Beside the floor over plain data it tells the library's share from the host's: nothing is asked of a member but what
// the list depends on, and nothing is guarded.
#pragma once

#include <string>
#include <vector>

#include "host/class_system.h"

namespace bench {

std::vector<std::u16string> hostFloorMethodNames(zelk::COSInternedID cls);
std::vector<std::u16string> hostFloorStaticMethodNames(zelk::COSInternedID cls);
std::vector<std::u16string> hostFloorPropertyNames(zelk::COSInternedID cls);
std::vector<std::u16string> hostFloorConstantNames(zelk::COSInternedID cls);
std::vector<std::u16string> hostFloorEnumerationNames(zelk::COSInternedID cls);

}  // namespace bench
