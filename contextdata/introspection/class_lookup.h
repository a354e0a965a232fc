// What class objects are asked in more than one place.
#pragma once

#include "host/class_system.h"

namespace contextdata::introspection {

/// Whether a class object, which may be null, has a definition.
inline bool isDefined(zelk::COSClass* cls) { return cls != nullptr && cls->getDefinition(false) != nullptr; }

/// Whether a class has a method of that name, its own or an inherited one.
inline bool hasAnyMethod(zelk::COSClass& cls, zelk::COSInternedID name) {
    const zelk::COSIteratorPtr methods = cls.findMethods(name);
    return methods && methods->hasMoreElements();
}

}  // namespace contextdata::introspection
