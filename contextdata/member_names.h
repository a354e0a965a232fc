// The quick way to the names of a class's methods and properties: one walk, a few fixed tests, no records.
//
// Interpreter thread. Nothing is caught: a host failure during a walk passes out, and the names appended so far
// stay in the caller's vector.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "contextdata/export.h"
#include "host/array_library.h"
#include "host/class_system.h"

namespace ZELKIntrospection {

/// Which properties a listing wants. Each selector knows the values below; 2 is always "no wish".
struct DesiredPropertyAttributes {
    std::int32_t getAccessSelection;      ///< 0: the get access must be public
    std::int32_t setAccessSelection;      ///< 0: the set access must be public
    std::int32_t setAccessFiveSelection;  ///< 0: constants only; 1: no constants
    std::int32_t propertyFlagSelection;   ///< 0: unlistable only; 1: listable only
};

/// Properties that may be assigned, that may be read, and that may be one or the other.
/// @{
CONTEXTDATA_API extern const DesiredPropertyAttributes leftHandSideDesiredPropertyAttributes;
CONTEXTDATA_API extern const DesiredPropertyAttributes rightHandSideDesiredPropertyAttributes;
CONTEXTDATA_API extern const DesiredPropertyAttributes eitherSideDesiredPropertyAttributes;
/// @}

/// Appends the names of the public methods of a class, constructors left out, each name once.
///
/// `staticSelection`: 0 any method, 1 static ones, -1 the others; any other value lists nothing.
/// `methodFlagSelection`: 0 any method, 1 listable ones, -1 the others; any other value rejects every method.
/// The first method of a name decides for all of that name. Lists nothing for a null class and for a class
/// without a definition.
CONTEXTDATA_API void getClassMethodNames(zelk::COSClass* cls, std::vector<std::u16string>& names, int staticSelection,
                                         int methodFlagSelection);

/// Appends the names of the properties of a class, which is not null and need not be defined. Repeats stay.
CONTEXTDATA_API void getClassPropertyNames(zelk::COSClass* cls, std::vector<std::u16string>& names,
                                           const DesiredPropertyAttributes& desired);

/// Appends the property names of an object: what its own "properties" function answers, else those of its class.
///
/// The value is an object of a defined class; for anything else whose function fails, nothing is listed.
CONTEXTDATA_API void getObjectPropertyNames(const qxArray* value, std::vector<std::u16string>& names);

}  // namespace ZELKIntrospection
