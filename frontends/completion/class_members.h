// The members that a class alone tells of.
#pragma once

#include "contextdata/resolved_class_id.h"
#include "frontends/completion/item.h"

namespace contextdata::completion {

/// What stands before the dot: the class itself, or an object of it.
enum class Side { classItself, object };

/// The public listable members of a class, inherited ones included. Enumeration members follow the class only.
///
/// Depends on nothing but the class, so the answer may be kept for as long as the class does not change. Empty for
/// an unknown class. The interrupt passes; a list that the host fails at contributes nothing.
Items membersOfClass(const ZELKContextData::ResolvedClassID& id, Side side);

}  // namespace contextdata::completion
