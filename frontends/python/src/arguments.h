// The arguments of the functions that Python calls without going through the binding library.
#pragma once

#include <pybind11/pybind11.h>

namespace contextdata::python {

/// What `complete` was called with, checked. The objects are borrowed from the call.
struct CompleteArguments {
    PyObject* text = nullptr;       ///< a str
    Py_ssize_t cursor = 0;          ///< in code points, within the text
    PyObject* variables = nullptr;  ///< an exact dict
    PyObject* inside = nullptr;     ///< anything; null when it was left out or is None
};

/// The dict of the variables that a text can use, borrowed: that of `__main__` when `variables` is null or None. Throws
/// `pybind11::error_already_set` with TypeError for anything but an exact dict.
PyObject* checkedVariables(PyObject* variables);

/// Reads the arguments of a vector call; throws `pybind11::error_already_set` with TypeError or ValueError.
CompleteArguments readCompleteArguments(PyObject* const* values, Py_ssize_t count, PyObject* keywords);

}  // namespace contextdata::python
