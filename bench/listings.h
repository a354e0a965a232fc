// The pairs that are compared: a list by the library and the same list by hand.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "bench/floor.h"
#include "contextdata/class_member_names.h"

namespace bench {

using Names = std::vector<std::u16string>;

/// What the library lists of a class, through its public function.
template <bool (*list)(const ZELKContextData::ResolvedClassID&, Names&, bool&)>
Names byLibrary(const ZELKContextData::ResolvedClassID& cls) {
    Names names;
    bool flag = false;
    list(cls, names, flag);
    return names;
}

struct Listing {
    const char* name;
    Names (*library)(const ZELKContextData::ResolvedClassID&);
    Names (*floor)(const Shape&);
};

inline constexpr std::array listings = {
    Listing{"methods", byLibrary<ZELKContextData::getClassMethodNames>, floorMethodNames},
    Listing{"static methods", byLibrary<ZELKContextData::getClassStaticMethodNames>, floorStaticMethodNames},
    Listing{"properties", byLibrary<ZELKContextData::getClassPropertyNames>, floorPropertyNames},
    Listing{"enumeration", byLibrary<ZELKContextData::getClassEnumerationNames>, floorEnumerationNames},
};

}  // namespace bench
