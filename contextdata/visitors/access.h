// Who may use a member.
#pragma once

#include <algorithm>
#include <cstdint>
#include <vector>

#include "contextdata/class_info.h"
#include "host/class_system.h"

namespace contextdata::visitors {

/// Whether an access code is one of those that the caller may use.
inline bool isAmong(const std::vector<std::int32_t>& accessibility, std::int32_t code) {
    return std::find(accessibility.begin(), accessibility.end(), code) != accessibility.end();
}

/// Whether a class is, or derives from, one of those on an access list.
inline bool isOn(zelk::COSAccessList list, const ZELKContextData::ClassInfo& cls) {
    return std::any_of(list.begin(), list.end(), [&](zelk::COSInternedID id) { return cls.isA(id); });
}

/// The canonical id of the class that declares a member; empty when no class does.
inline zelk::COSInternedID declarerOf(const zelk::COSInterfacePtr& member) {
    const zelk::COSClass* cls = zelk::cosiClassOfMember(member.get());
    return cls == nullptr ? zelk::COSInternedID() : cls->getID();
}

/// Whether a member is declared by the class of that id, which an unknown class never does.
inline bool isDeclaredBy(zelk::COSInternedID declarer, const ZELKContextData::ClassInfo& cls) {
    return !declarer.isEmpty() && declarer == cls.getSuperclassInfo().classID;
}

}  // namespace contextdata::visitors
