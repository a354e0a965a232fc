// Arrays and array scalars. The array package is recognised once the session has loaded it; it is never imported here.
#pragma once

#include <Python.h>

#include <cstddef>
#include <optional>
#include <vector>

#include "host/array_library.h"
#include "hosts/python/references.h"

namespace python_host {

/// Whether the package is loaded, in a version whose objects look as they did when this was compiled.
bool isNumpyUsable();

/// The kind of an exact array, or of an array scalar; nothing for any other object. Subclasses of the array are classes
/// of their own.
std::optional<qxClassID> numpyKindOf(PyObject* object);

/// Extents of an exact array, two at least; nothing for any other object.
std::optional<std::vector<std::size_t>> numpyExtentsOf(PyObject* object);

/// The element of an exact array of objects in row order; empty for any other, and past the end.
Ref numpyElementOf(PyObject* object, std::size_t index);

/// The number of elements of an exact array; 0 for any other object.
std::size_t numpyLengthOf(PyObject* object);

/// The doubles of an exact, contiguous, native array of them or of a double scalar; null for any other object.
const double* numpyDoublesOf(PyObject* object);

/// What an exact array has at an index of whole numbers, slices, field names or a tuple of these: an element or a view,
/// never a copy. Empty for any other object, when there is nothing, and when the elements are of a user's type. No
/// Python error is left.
Ref numpyItem(PyObject* object, PyObject* index);

/// The names of the fields of structured data, a tuple: of an array, be it of a subclass, or of one element. Empty for
/// any other object. Runs no code of the object's.
Ref numpyFieldsOf(PyObject* object);

/// Whether an object is a truth value of the package, or an exact array of one, that is true.
bool isNumpyTrue(PyObject* object);

/// Whether the type is the array's own, an array scalar's own, or a data type of the package.
bool isNumpyOwnType(PyTypeObject* type);

}  // namespace python_host
