// Whether reading a property runs code of its author.
#pragma once

#include "host/class_system.h"

namespace contextdata::visitors {

/// True as well when the host fails at the question: who must not run an author's code takes a maybe for a yes. The
/// interrupt passes.
bool hasCustomGetter(const zelk::COSPropInfo& property);

}  // namespace contextdata::visitors
