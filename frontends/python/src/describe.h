// From what a caller wants described to its description.
#pragma once

#include <pybind11/pybind11.h>

namespace contextdata::python {

/// `describe(subject, namespace=None, hidden=False)`: a tuple of the module, the file, what `objectsOf` makes
/// (description_objects.h), and a tuple of the own attributes of an object.
///
/// A str is a text: the name of a class, or a chain of names that leads to a class or an object, read as in `complete`.
/// Any other object is described itself: a class as such, anything else by its class. Throws
/// `pybind11::error_already_set` with ValueError for a text that leads nowhere and for a module, with TypeError for a
/// namespace that is no plain dict. The interrupt passes.
pybind11::tuple describe(const pybind11::object& subject, const pybind11::object& variables, bool includeHidden);

}  // namespace contextdata::python
