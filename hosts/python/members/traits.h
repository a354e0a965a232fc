// Traits: the typed, observed attributes of the library that notebooks are built on.
#pragma once

#include <Python.h>

namespace python_host {

/// Whether a class attribute is a trait, of whatever making.
bool isTrait(PyObject* value) noexcept;

/// Whether the trait's type is one of the library's own, which read what an object stores. A derived type may do
/// anything when it is read.
bool isLibraryTrait(PyObject* trait) noexcept;

/// Whether the class can have traits.
bool hasTraits(PyTypeObject* type) noexcept;

/// What the author attached to a trait, as an exact dictionary borrowed from it; null when it is anything else.
PyObject* traitMetadata(PyObject* trait) noexcept;

}  // namespace python_host
