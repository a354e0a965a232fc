// Where methods of a class are offered.
#pragma once

#include "contextdata/method_info.h"
#include "host/interned.h"

namespace contextdata::visitors {

/// Whether methods of a class are offered at a position; an unknown position offers none.
inline bool isOfferedAt(ZELKContextData::MethodInfo::GetContext position, zelk::COSInternedID className) {
    using ZELKContextData::MethodInfo;
    switch (position) {
        case MethodInfo::GetContext::anyPosition:
            return true;
        case MethodInfo::GetContext::afterDot:
            return MethodInfo::isClassToCompleteMethodsForAfterDot(className);
        case MethodInfo::GetContext::beforeDot:
            return MethodInfo::isClassToCompleteMethodsForBeforeDot(className);
        case MethodInfo::GetContext::none:
            break;
    }
    return false;
}

}  // namespace contextdata::visitors
