// The floor: the same lists as the library's, written by hand over plain data.
//
// Nothing stands between the loop and the data: no host calls but the conversion of each name, which the library
// asks for too, and no guard. The results are allocated as the library allocates them.
#pragma once

#include <string>
#include <vector>

#include "bench/floors/shapes.h"

namespace bench {

std::vector<std::u16string> floorMethodNames(const Shape& shape);
std::vector<std::u16string> floorStaticMethodNames(const Shape& shape);
std::vector<std::u16string> floorPropertyNames(const Shape& shape);
std::vector<std::u16string> floorConstantNames(const Shape& shape);
std::vector<std::u16string> floorEnumerationNames(const Shape& shape);

}  // namespace bench
