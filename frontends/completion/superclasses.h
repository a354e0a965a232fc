// From a class to the classes that it derives from.
#pragma once

#include <string>
#include <vector>

#include "contextdata/resolved_class_id.h"
#include "host/interned.h"

namespace contextdata::completion {

/// The name under which the class system itself knows a class; empty for an identity that names no class object, and
/// when the host fails. The interrupt passes.
zelk::COSInternedID canonicalId(const ZELKContextData::ResolvedClassID& id);

/// The direct superclasses of a class by their canonical ids, in the class system's order, ids of no class left out.
/// None when the host fails; the interrupt passes.
std::vector<zelk::COSInternedID> superclassesOf(zelk::COSInternedID id);

}  // namespace contextdata::completion
