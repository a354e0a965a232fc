// The world of the golden files about what is no member: modules, keys, arguments, files.
#pragma once

#include "tests/golden/golden_worlds.h"

namespace golden {

/// Namespaces within namespaces, tables, functions with arguments, and the folder `shelf` as the working folder.
void buildDesk(GoldenWorld& desk);

}  // namespace golden
