// The arguments of the functions that Python calls without going through the binding library.
#pragma once

#include <pybind11/pybind11.h>

#include "hosts/python/python_host.h"

namespace contextdata::python {

/// The dictionaries among which a text's names are looked up, borrowed.
struct Scope {
    PyObject* locals = nullptr;   ///< an exact dict; null when the scope was left out
    PyObject* globals = nullptr;  ///< an exact dict, or null
};

/// Reads a namespace: nothing for null and None, else an exact dict, or a tuple of one or two of them. Throws
/// `pybind11::error_already_set` with TypeError for anything else.
Scope readScope(PyObject* variables);

/// The workspace of a scope; when that was left out, the current one of the session.
inline python_host::CurrentWorkspace workspaceOf(const Scope& scope) {
    return scope.locals == nullptr ? python_host::CurrentWorkspace()
                                   : python_host::CurrentWorkspace(scope.locals, scope.globals);
}

/// What `complete` was called with, checked. The objects are borrowed from the call.
struct CompleteArguments {
    PyObject* text = nullptr;  ///< a str
    Py_ssize_t cursor = 0;     ///< in code points, within the text
    Scope scope;
    PyObject* inside = nullptr;  ///< anything; null when it was left out or is None
    bool isRanked = false;
    Py_ssize_t limit = PY_SSIZE_T_MAX;  ///< not negative
};

/// Reads the arguments of a vector call; throws `pybind11::error_already_set` with TypeError or ValueError.
CompleteArguments readCompleteArguments(PyObject* const* values, Py_ssize_t count, PyObject* keywords);

}  // namespace contextdata::python
