// Whether reading a property runs code of its author.
#pragma once

#include <vector>

#include "host/class_system.h"

namespace contextdata::visitors {

/// True as well when the host fails at the question: who must not run an author's code takes a maybe for a yes. The
/// interrupt passes.
///
/// `flags` is the names of the attributes that say so, interned; they are interned into it when it is empty and first
/// needed.
bool hasCustomGetter(const zelk::COSPropInfo& property, std::vector<zelk::COSInternedID>& flags);

}  // namespace contextdata::visitors
