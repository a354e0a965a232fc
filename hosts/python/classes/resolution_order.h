// The dictionaries of a type along its method resolution order.
#pragma once

#include <Python.h>

#include "hosts/python/references.h"

namespace python_host {

/// A class attribute as it stands in a type's dictionary, before any descriptor is asked.
struct RawAttribute {
    PyObject* value = nullptr;      ///< borrowed from the dictionary; null when there is none
    PyTypeObject* owner = nullptr;  ///< the type in whose dictionary it stands, borrowed
};

/// The first type of the order that has the name decides.
RawAttribute findInOrder(PyTypeObject* type, PyObject* name) noexcept;

/// Whether `base` stands in the order of `type`. Asks nobody: neither `__class__` nor `__subclasscheck__`.
inline bool derivesFrom(PyTypeObject* type, PyTypeObject* base) noexcept { return PyType_IsSubtype(type, base) != 0; }

/// The order as a tuple, kept alive by the handle; empty for a type that is still being made.
Ref resolutionOrder(PyTypeObject* type);

}  // namespace python_host
