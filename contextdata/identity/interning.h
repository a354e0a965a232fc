// Interning of names that may be empty.
#pragma once

#include <string_view>

#include "host/interned.h"

namespace contextdata::identity {

/// The handle of a name; the empty handle, without asking the host, for an empty one.
inline zelk::COSInternedID internName(std::string_view name) {
    if (name.empty()) {
        return {};
    }
    return zelk::internal::makeInterned(name);
}

}  // namespace contextdata::identity
