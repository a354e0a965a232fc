// The attributes that may be written where a class is declared.
#pragma once

#include <set>
#include <string>

#include "contextdata/export.h"

namespace ZELKContextData {

/// Attribute names by what they are written on, each set ordered by UTF-16 code unit. A plain value.
struct CONTEXTDATA_API AttributeInfo {
    std::set<std::u16string> ofClasses;     ///< on a class as a whole
    std::set<std::u16string> ofProperties;  ///< on its properties
    std::set<std::u16string> ofMethods;     ///< on its methods
    std::set<std::u16string> ofEvents;      ///< on its events
};

}  // namespace ZELKContextData
