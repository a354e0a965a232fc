// What the declared type of a property says about its values.
#pragma once

#include "contextdata/property_info.h"
#include "host/data_types.h"

namespace contextdata::visitors {

/// Fills `typeName`, `sizes`, `validators`, `valueKind` and `values` of a fresh record; leaves them empty for an empty
/// type. What the host throws passes out.
void analyseType(const zelk::COSDataTypePtr& type, ZELKContextData::PropertyInfo& property);

}  // namespace contextdata::visitors
