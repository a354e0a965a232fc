// Limits of values that a descriptor or a field declaration keeps.
#pragma once

#include <Python.h>

#include <string>
#include <vector>

namespace python_host {

/// The limits among an object's own attributes, as "min=0" and the like, always in the same order. Only plain numbers
/// and texts count.
std::vector<std::string> limitsOf(PyObject* object);

}  // namespace python_host
