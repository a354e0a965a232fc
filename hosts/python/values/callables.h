// What an object is, told by its real type.
#pragma once

#include <Python.h>

namespace python_host {

/// Whether the object is a property that keeps what it computed (`functools.cached_property`).
bool isCachedProperty(PyObject* object) noexcept;

/// Whether a type from C of one of the well-known libraries has that name.
bool isNamedType(const PyTypeObject* type, const char* name) noexcept;

}  // namespace python_host
