// The class of the superclasses that a class information makes itself.
#pragma once

#include "contextdata/class_info.h"

namespace ZELKContextData {

/// Opens the constructor of unknown classes, so that object and count come from one piece of memory.
///
/// Overrides nothing: an object that is exactly of this type answers as `ClassInfo` does.
class Superclass final : public ClassInfo {};

}  // namespace ZELKContextData
