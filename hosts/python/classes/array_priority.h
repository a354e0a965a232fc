// How strongly a class of array-like objects claims an operation in which several meet.
#pragma once

#include <Python.h>

#include <optional>

namespace python_host {

/// The `__array_priority__` that a class or an ancestor of it keeps as a plain number; nothing for a class that has
/// none, or computes it. Runs no code of the class.
std::optional<double> arrayPriorityOf(PyTypeObject* type);

}  // namespace python_host
