// What the dataclass decorator leaves behind in a class, read as data.
#pragma once

#include <Python.h>

#include "hosts/python/references.h"

namespace python_host {

/// Whether the class itself was made a dataclass; one that merely derives from such a class was not.
bool isDataclass(PyTypeObject* type) noexcept;

/// Whether the class is a frozen dataclass and the name is one of its fields. Class variables and parameters of the
/// constructor are none.
bool isFrozenField(PyTypeObject* type, PyObject* name) noexcept;

/// The metadata of a field as an exact dictionary; empty when the class has no such field, or the field's metadata is a
/// mapping of a user's making.
Ref fieldMetadata(PyTypeObject* type, PyObject* name) noexcept;

}  // namespace python_host
