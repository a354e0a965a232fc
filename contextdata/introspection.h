// Questions about classes, namespaces, objects and their members, answered by the class system.
//
// Interpreter thread. Nothing is kept between calls. Class and namespace objects are borrowed from the host's
// registry. A class is *defined* when its class object has a definition; a class object without one is no class
// to the queries by name and by value.
//
// Failures: where a function says "guarded", a host failure is a negative answer and the interrupt passes;
// otherwise whatever the host throws passes.
#pragma once

#include <string>
#include <vector>

#include "contextdata/export.h"
#include "contextdata/resolved_class_id.h"
#include "host/array_library.h"
#include "host/class_system.h"

namespace ZELKIntrospection {

/// The defined class of a full name, or null. No resolution is applied. Guarded.
CONTEXTDATA_API zelk::COSClass* getCOSClass(const std::u16string& className);

/// The class object of an identity, defined or not; null for the null identity. Guarded.
CONTEXTDATA_API zelk::COSClass* getCOSClass(const ZELKContextData::ResolvedClassID& id);

/// The defined class of a value, or null; null for a null value. The look-up is guarded, asking the value is not.
CONTEXTDATA_API zelk::COSClass* getCOSClass(const qxArray* value);

/// Whether a name is a defined class. Guarded.
CONTEXTDATA_API bool isZELKClass(const std::u16string& className);

/// Whether the host knows a class object for an identity, defined or not. Guarded.
CONTEXTDATA_API bool isZELKClass(const ZELKContextData::ResolvedClassID& id);

/// Whether a name is a defined class that is hidden. The look-up is guarded, the flag is not.
CONTEXTDATA_API bool isHiddenZELKClass(const std::u16string& className);

/// Whether a defined class derives from a class of the name `baseName`. The look-up is guarded, the test is not.
CONTEXTDATA_API bool isZELKClassDerivedFrom(const std::u16string& className, const std::u16string& baseName);

/// Whether the class object of `cls`, defined or not, derives from `base`, which is not null. The look-up is
/// guarded, the test is not.
CONTEXTDATA_API bool isZELKClassDerivedFrom(const ZELKContextData::ResolvedClassID& cls,
                                            const ZELKContextData::ResolvedClassID& base);

/// Whether a namespace of that name exists. Not guarded.
CONTEXTDATA_API bool isZELKNamespace(const std::u16string& namespaceName);

/// Whether a value is an object of a defined class; false for null. As `getCOSClass` of a value.
CONTEXTDATA_API bool isZELKObject(const qxArray* value);

/// The namespace of a name, or null. The host keeps it alive. Not guarded.
CONTEXTDATA_API zelk::COSInterface* getNamespaceInterface(const std::u16string& name);

/// The class name of any value, which is not null. Not guarded.
CONTEXTDATA_API const std::u16string getClassName(const qxArray* value);

/// The part of a class name after its last dot; the whole name without one. Looks nothing up.
CONTEXTDATA_API const std::u16string getConstructorName(const std::u16string& className);

/// Whether a defined class has a method of that name; if so, `flag` says whether the first of them is static, if
/// not, `flag` keeps its value. The class look-up is guarded, the rest is not.
CONTEXTDATA_API bool hasMethod(const ZELKContextData::ResolvedClassID& cls, const std::string& methodName, bool& flag);

/// The same by a class name, which may be of an older form. Guarded throughout.
CONTEXTDATA_API bool hasMethod(const std::u16string& className, const std::string& methodName, bool& flag);

/// Whether the defined class of a value has a method, or a property, of that name. As `getCOSClass` of a value;
/// the member look-up is not guarded.
/// @{
CONTEXTDATA_API bool hasMethod(const qxArray* value, const std::string& methodName);
CONTEXTDATA_API bool hasProperty(const qxArray* value, const std::string& propertyName);
/// @}

/// Whether no method name of a value may be completed after a dot: its class is, or derives from, one of a fixed list
/// (`getNoDotMethodClassesExcludeSet`), which holds the class by which authors opt out. False for null. Not guarded.
CONTEXTDATA_API bool isNoDotMethodClass(const qxArray* value);

/// Calls a function of the interpreter with the value as its only argument and appends the texts of the cell that
/// it returns.
///
/// False, with `names` as it was, when the call fails in any way (the interrupt included), when the answer is no
/// cell of texts, and for a null value. Never throws.
CONTEXTDATA_API bool callFunctionOnObject(const qxArray* value, const std::string& functionName,
                                          std::vector<std::u16string>& names);

}  // namespace ZELKIntrospection
