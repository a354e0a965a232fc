// The functions that the native module offers.
#pragma once

#include <pybind11/pybind11.h>

namespace contextdata::python {

/// `complete(text, cursor=None, namespace=None, *, inside=None, ranked=False, limit=None)`, called with a vector of
/// arguments. New reference, null with the error set: that of a wrong argument, or the interrupt.
PyObject* complete(PyObject* module, PyObject* const* values, Py_ssize_t count, PyObject* keywords) noexcept;

/// `members(object)`. New reference, null with the error set.
PyObject* members(PyObject* module, PyObject* object) noexcept;

/// `explain(text, namespace)`: why a text offers nothing, for people: the refusal in words (empty when there is
/// none), the names of its chain, and how many of them could be followed.
pybind11::tuple explain(const pybind11::str& text, const pybind11::dict& variables);

}  // namespace contextdata::python
