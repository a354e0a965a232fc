// The names that may follow a class and a dot.
//
// Ten functions of one shape. Each appends to the caller's vector, never clears, sorts or de-duplicates it, and
// answers whether it grew. Interpreter thread.
//
// `flag`: the two property functions set it, as soon as the class is found, to whether objects of the class may
// carry properties that the class does not declare; the others leave it alone.
//
// By name: the name may be of an older form; everything that is thrown, the interrupt included, is swallowed and
// answers false, and names appended before stay. By identity: the look-up of the class is guarded (a host failure
// is "no such class", the interrupt passes), and the rest catches nothing. An unknown class answers false and
// leaves vector and flag alone.
#pragma once

#include <string>
#include <vector>

#include "contextdata/export.h"
#include "contextdata/resolved_class_id.h"

namespace ZELKContextData {

/// Public listable methods, static or not.
/// @{
CONTEXTDATA_API bool getClassMethodNames(const std::u16string& className, std::vector<std::u16string>& names,
                                         bool& flag);
CONTEXTDATA_API bool getClassMethodNames(const ResolvedClassID& cls, std::vector<std::u16string>& names, bool& flag);
/// @}

/// Public listable methods that are static.
/// @{
CONTEXTDATA_API bool getClassStaticMethodNames(const std::u16string& className, std::vector<std::u16string>& names,
                                               bool& flag);
CONTEXTDATA_API bool getClassStaticMethodNames(const ResolvedClassID& cls, std::vector<std::u16string>& names,
                                               bool& flag);
/// @}

/// Listable properties that everybody may read or assign.
/// @{
CONTEXTDATA_API bool getClassPropertyNames(const std::u16string& className, std::vector<std::u16string>& names,
                                           bool& flag);
CONTEXTDATA_API bool getClassPropertyNames(const ResolvedClassID& cls, std::vector<std::u16string>& names, bool& flag);
/// @}

/// The constants among them.
/// @{
CONTEXTDATA_API bool getClassConstantPropertyNames(const std::u16string& className, std::vector<std::u16string>& names,
                                                   bool& flag);
CONTEXTDATA_API bool getClassConstantPropertyNames(const ResolvedClassID& cls, std::vector<std::u16string>& names,
                                                   bool& flag);
/// @}

/// Enumeration members that are not hidden, in the class's order.
/// @{
CONTEXTDATA_API bool getClassEnumerationNames(const std::u16string& className, std::vector<std::u16string>& names,
                                              bool& flag);
CONTEXTDATA_API bool getClassEnumerationNames(const ResolvedClassID& cls, std::vector<std::u16string>& names,
                                              bool& flag);
/// @}

}  // namespace ZELKContextData
