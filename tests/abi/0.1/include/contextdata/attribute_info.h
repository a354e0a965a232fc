// The attributes that may be written where a class is declared.
#pragma once

#include <set>
#include <string>

#include "contextdata/export.h"

namespace ZELKContextData {

/// Attribute names by what they are written on, each set ordered by UTF-16 code unit. A plain value.
struct CONTEXTDATA_API AttributeInfo {
    std::set<std::u16string> ofClasses;
    std::set<std::u16string> ofProperties;
    std::set<std::u16string> ofMethods;
    std::set<std::u16string> ofEvents;
};

}  // namespace ZELKContextData
