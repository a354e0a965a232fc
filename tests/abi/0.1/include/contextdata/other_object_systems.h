// Names that belong to no class of the class system: packages of the older object system, Java, structures.
// Interpreter thread.
#pragma once

#include <string>
#include <vector>

#include "contextdata/export.h"
#include "host/array_library.h"

/// Whether a name is a package of the older object system. The name goes into an expression as it stands, so one with a
/// quote in it is none. False for every failure; the interrupt passes.
CONTEXTDATA_API bool IsXOBPackage(const std::u16string& name);

/// Whether a qualified name (class, dot, member) names a member of a Java class. False for a name without a dot and for
/// one whose last dot comes first. Nothing is caught.
CONTEXTDATA_API bool IsJavaFunction(const std::u16string& qualifiedName);

namespace XOBContextData {

/// Appends the names that may follow a package of the older object system and a dot: its classes and functions, then
/// what lies in its folders on the search path, which count for a package that exists as a folder alone. True when the
/// vector grew. A package that cannot be found, or a property of it that cannot be read, adds nothing, whatever was
/// thrown; everything else that the host throws passes, save what `getWhatList` keeps to itself.
CONTEXTDATA_API bool getPackageStrings(const std::u16string& packageName, std::vector<std::u16string>& names);

}  // namespace XOBContextData

namespace StructContextData {

/// Appends the field names of a structure, which is not null, in its own order. Nothing is caught.
CONTEXTDATA_API void getStructFieldNames(const qxArray* value, std::vector<std::u16string>& names);

}  // namespace StructContextData
