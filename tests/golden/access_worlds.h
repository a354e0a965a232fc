// The worlds in which it matters who asks, and those of classes that are worth a description.
#pragma once

#include "tests/golden/golden_worlds.h"

namespace golden {

/// Members that are private, protected, or open to certain classes.
void buildVaults(GoldenWorld& vaults);

/// Typed properties, attributes, diamonds.
void buildShapes(GoldenWorld& shapes);

}  // namespace golden
