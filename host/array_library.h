// The array library: the host's dynamically typed values, their kinds, shapes, parts and lifetime.
//
// A value is opaque here; the host defines it. Ownership is in the type: `qxUniqueArray` owns, `qxSharedArray`
// shares over the host's own count, a raw pointer is borrowed. Interpreter thread unless a function says more.
// A `const qxArray*` argument is never null unless its function says that it may be.
#pragma once

#include <boost/smart_ptr/intrusive_ptr.hpp>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

#include "host/visibility.h"

class qxArray;

/// What kind of value an array is. Codes up to 16 are built in; a value of the current class system carries a
/// number above 18 that the host gives to its class.
enum class qxClassID : std::int32_t {
    unknown = 0,
    cell = 1,
    structure = 2,
    logical = 3,
    character = 4,
    reserved = 5,
    float64 = 6,
    float32 = 7,
    int8 = 8,
    uint8 = 9,
    int16 = 10,
    uint16 = 11,
    int32 = 12,
    uint32 = 13,
    int64 = 14,
    uint64 = 15,
    functionHandle = 16,
    opaque = 17,
    object = 18,  ///< an object of the older object system
};

/// Which scope destroys a value when it ends.
enum class qxArrayScope : std::int32_t {
    none = 0,  ///< no scope: the value lives as long as its owners
};

/// Gives up one owner's claim on a value; the last one destroys it. Null is allowed and does nothing.
CONTEXTDATA_HOST_API void qxDestroyArray(qxArray* value) noexcept;

/// Lets a standard pointer own a value: it destroys through the host. Any number may own claims on one value.
struct qxArrayDeleter {
    /// `value` may be null. Never throws.
    void operator()(qxArray* value) const noexcept { qxDestroyArray(value); }
};

/// Sole owner of a value.
using qxUniqueArray = std::unique_ptr<qxArray, qxArrayDeleter>;

/// The host's own count, which shared handles use. A value that an owner holds starts with one reference. `value` is
/// not null; the last release destroys it.
/// @{
CONTEXTDATA_HOST_API void intrusive_ptr_add_ref(const qxArray* value) noexcept;
CONTEXTDATA_HOST_API void intrusive_ptr_release(const qxArray* value) noexcept;
/// @}

/// Shared owner of a value that nobody changes.
using qxSharedArray = boost::intrusive_ptr<const qxArray>;

/// The id that stands in the value itself, at no cost.
CONTEXTDATA_HOST_API qxClassID qxGetClassID(const qxArray* value);

/// The number of the value's class in the object system: for built-in kinds the id, for all others the number of the
/// very class. May throw any host failure or the interrupt.
CONTEXTDATA_HOST_API std::int32_t qxGetFullClassID(const qxArray* value);

/// The name of the value's class, ASCII, zero-terminated ("double", or the class of an object). Borrowed until
/// the value is destroyed. Never null.
CONTEXTDATA_HOST_API const char* qxGetClassName(const qxArray* value);

/// Whether the value is of the named class or of a subclass.
CONTEXTDATA_HOST_API bool qxIsA(const qxArray* value, const char* className);

/// Whether a value has no element. Of an object the host's own shape counts: no method of its class is called.
CONTEXTDATA_HOST_API bool qxIsEmpty(const qxArray* value);

/// The product of the extents.
CONTEXTDATA_HOST_API std::size_t qxGetNumberOfElements(const qxArray* value);

/// The value's own shape: `qxGetNumberOfDimensions` extents, borrowed until the value is destroyed. At least two.
/// @{
CONTEXTDATA_HOST_API std::size_t qxGetNumberOfDimensions(const qxArray* value);
CONTEXTDATA_HOST_API const std::size_t* qxGetDimensions(const qxArray* value);
/// @}

/// The element of a cell at a position in storage order, borrowed from the cell; null for an element that was
/// never set. `index` is below the element count.
CONTEXTDATA_HOST_API const qxArray* qxGetCell(const qxArray* cell, std::size_t index);

/// The value of a field in one element of a structure or older object, shared with it; empty when there is no such
/// field and when it was never set. `index` is below the element count.
CONTEXTDATA_HOST_API qxSharedArray qxGetField(const qxArray* value, std::size_t index, const char* name);

/// The fields of a structure: how many, and the name of each, ASCII, borrowed until the structure is destroyed. Zero
/// for a value that has none. `number` is below the count.
/// @{
CONTEXTDATA_HOST_API std::size_t qxGetNumberOfFields(const qxArray* value);
CONTEXTDATA_HOST_API const char* qxGetFieldNameByNumber(const qxArray* value, std::size_t number);
/// @}

/// Whether a value has exactly one element.
CONTEXTDATA_HOST_API bool qxIsScalar(const qxArray* value);

/// Whether a value is a logical scalar that is true.
CONTEXTDATA_HOST_API bool qxIsLogicalScalarTrue(const qxArray* value);

/// The elements of a double array in storage order, borrowed until the value is destroyed.
CONTEXTDATA_HOST_API const double* qxGetDoubles(const qxArray* value);

/// Reads a property of one element of an object without copying the value.
///
/// `name` is zero-terminated. The result is owned by the caller but stands in the current temporary scope, which
/// may end it; `qxSetArrayScope(value, qxArrayScope::none)` takes it out. Null when the object gives nothing.
/// May throw any host failure or the interrupt.
CONTEXTDATA_HOST_API qxArray* qxGetPropertyShared(const qxArray* object, std::size_t index, const char* name);

/// Moves a value to another scope. The caller's ownership is unchanged, also when it throws.
CONTEXTDATA_HOST_API void qxSetArrayScope(qxArray* value, qxArrayScope scope);

/// A copy of a property's value in one element of an object; null when the object gives nothing. `name` is
/// zero-terminated. May throw any host failure or the interrupt.
CONTEXTDATA_HOST_API qxUniqueArray qxGetProperty(const qxArray* object, std::size_t index, const char* name);

/// A text as a host value. May throw any host failure.
CONTEXTDATA_HOST_API qxUniqueArray qxCreateString(std::u16string_view text);

/// A cell of unset elements; null when the host cannot make one.
CONTEXTDATA_HOST_API qxUniqueArray qxCreateCell(std::size_t rows, std::size_t columns);

/// Sets an element of a cell, which owns it from then on; null unsets it. `index` is below the element count. When it
/// throws, the element is gone and the cell is as it was.
CONTEXTDATA_HOST_API void qxSetCell(qxArray* cell, std::size_t index, qxUniqueArray element);

/// A value through which the static members of a class of any object system can be looked up; null when the host can
/// make none. `className` is ASCII.
CONTEXTDATA_HOST_API qxUniqueArray qxCreateClassArray(const char* className);

/// The static member of a value's class, by its name; null when the class has none.
CONTEXTDATA_HOST_API qxUniqueArray qxFindClassMember(const qxArray* value, const char* memberName);

/// How many of the first characters of a text form a valid variable name; 0 when the text begins with none.
CONTEXTDATA_HOST_API std::size_t qxCountNameCharacters(std::string_view text) noexcept;
