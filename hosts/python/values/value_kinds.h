// What kind of value a live object is to the array library.
#pragma once

#include <Python.h>

#include <cstddef>
#include <string>
#include <vector>

#include "host/array_library.h"
#include "hosts/python/references.h"

namespace python_host {

/// The class id of an object, from its real type alone. Instances of other than built-in kinds get their class's
/// number.
qxClassID classIdOfObject(PyObject* object);

/// Whether the id is one of an object of the class system.
constexpr bool isInstanceID(qxClassID id) noexcept { return id > qxClassID::object; }

/// The name of a built-in kind ("double", "cell", ...); null for others.
const char* kindName(qxClassID id) noexcept;

/// The extents of an object, two at least.
std::vector<std::size_t> extentsOf(PyObject* object);

/// The element of a list, a tuple or an array of objects; empty when there is none.
Ref elementOf(PyObject* object, std::size_t index);

/// The doubles of an object that holds them in one piece; null for any other.
const double* doublesOf(PyObject* object);

}  // namespace python_host
