// Getters that are known to run no code of a user.
#pragma once

#include <Python.h>

#include <string_view>

#include "hosts/python/classes/resolution_order.h"
#include "hosts/python/references.h"

namespace python_host {

/// Whether a getter in C of that name is on the list for objects of exactly that type.
bool isKnownGetter(PyTypeObject* type, std::string_view name);

/// Whether a descriptor gives an item of a tuple, as the fields of named tuples do.
bool isKnownItemGetter(PyObject* descriptor) noexcept;

/// Reads an attribute that a data descriptor gives, for the types and names of a fixed list: numbers, dates, arrays and
/// their scalars, frames and series, members of enumerations. The object's type must be the library's own, as a derived
/// class may have changed what the getter calls. Empty for everything else.
Ref readKnownGetter(PyObject* object, const RawAttribute& attribute, PyObject* name);

/// What a wrapper of the language gives when it is read from a class: the function of a static method. Empty for every
/// other descriptor.
Ref readKnownWrapper(PyObject* wrapper);

}  // namespace python_host
