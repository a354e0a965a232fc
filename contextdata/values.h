// Reading host values: texts, sizes, shared properties, opaque objects, and the built-in functions.
// Interpreter thread.
#pragma once

#include <cstdint>
#include <string>
#include <unordered_set>
#include <vector>

#include "contextdata/export.h"
#include "host/array_library.h"

/// Appends all texts of a cell, in storage order, or none of them.
///
/// False, with `names` as it was, when the value is null or no cell, or when an element is missing or is no single
/// text. Host failures and the interrupt pass, again with `names` as it was.
CONTEXTDATA_API bool getStringsFromQxarray(const qxArray* value, std::vector<std::u16string>& names);

/// The size of a value as the language itself reports it: one extent a dimension.
///
/// Built-in and opaque values answer their own dimensions; an object is asked its "size" method, or "sizeAsDouble"
/// when its class mixes in the custom size. An answer that is no list of numbers falls back to the dimensions.
/// Empty for null, for a "tall" value, and when anything at all is thrown on the way: an object whose size method
/// fails has no size. Never throws.
CONTEXTDATA_API std::vector<std::uint64_t> getSizeFromQxArray(const qxArray* value);

/// Reads a property of one element of an object without copying; the result outlives the temporary scope.
/// `object` is not null. Empty when there is no value and when anything is thrown. Never throws.
CONTEXTDATA_API qxSharedArray getSharedProperty(const qxArray* object, const std::string& name, std::uint64_t index);

/// Takes a value out of its temporary scope and adopts the caller's reference; null gives an empty handle.
/// Catches nothing; when it throws, the caller still owns the value.
CONTEXTDATA_API qxSharedArray makeSharedPtr(qxArray* value);

/// Whether a value is opaque or an object of the older object system; false for null. Catches nothing.
CONTEXTDATA_API bool isObjectOrIsOpaque(const qxArray* value);

/// Append what the value's own "methods" or "properties" function answers; nothing when it fails. Never throw.
/// @{
CONTEXTDATA_API void getOpaqueObjectMethods(const qxArray* value, std::vector<std::u16string>& names);
CONTEXTDATA_API void getOpaqueObjectProperties(const qxArray* value, std::vector<std::u16string>& names);
/// @}

/// The names of the documented built-in functions. Catches nothing.
CONTEXTDATA_API std::unordered_set<std::u16string> getBuiltinFunctionNames();
