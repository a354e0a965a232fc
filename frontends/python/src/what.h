// What lies in a folder, for Python.
#pragma once

#include <pybind11/pybind11.h>

namespace contextdata::python {

/// The entries of one kind in a folder of the search path, an empty name being the working folder: a list of str, or
/// None when no folder of that name is found. An unknown kind lists nothing.
pybind11::object what(const pybind11::str& folder, const pybind11::str& kind);

}  // namespace contextdata::python
