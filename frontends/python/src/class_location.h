// Where a class is written down.
#pragma once

#include <pybind11/pybind11.h>

#include "contextdata/resolved_class_id.h"

namespace contextdata::python {

/// The name of the module that defines a class, as a str, and the file of that module; each None when it is not known.
/// Read from the dictionaries of the class and of the loaded module: no code runs, nothing is imported.
struct ClassLocation {
    pybind11::object module;
    pybind11::object file;
};
ClassLocation locationOf(PyTypeObject* type);

/// The class that stands under its full name in a loaded module, borrowed from there; null when there is none, as for
/// one that was made in a function.
PyTypeObject* typeNamed(const ZELKContextData::ResolvedClassID& id);

}  // namespace contextdata::python
