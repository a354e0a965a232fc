// Parts of objects that their type keeps at a fixed place: C members and slots.
#pragma once

#include <Python.h>

#include <string_view>

#include "hosts/python/references.h"

namespace python_host {

/// A C member of a built-in object, by the name under which its type publishes it. No attribute is asked. Borrowed;
/// null when it is not set, and when the type has no such member that holds an object.
PyObject* objectMember(PyTypeObject* type, PyObject* object, std::string_view name) noexcept;

/// A slot that `type` itself declares; `object` is of that type or of a derived one. Empty when it is not set, and when
/// the type has no such slot, or no longer.
Ref readOwnSlot(PyTypeObject* type, PyObject* object, PyObject* name) noexcept;

}  // namespace python_host
