// Which objects are functions, told by their real types.
#pragma once

#include <Python.h>

namespace python_host {

/// Whether the object is a function of a known kind: Python's own, built in, compiled, a universal function, a cached
/// or partial one. An instance of a user's class with `__call__` is none.
bool isKnownFunction(PyObject* object) noexcept;

/// Whether the object is a property that keeps what it computed (`functools.cached_property`).
bool isCachedProperty(PyObject* object) noexcept;

/// Whether a type from C of one of the well-known libraries has that name.
bool isNamedType(const PyTypeObject* type, const char* name) noexcept;

}  // namespace python_host
