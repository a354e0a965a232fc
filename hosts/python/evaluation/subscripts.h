// Reading an element without running code.
#pragma once

#include <Python.h>

#include "hosts/python/evaluation/expression.h"
#include "hosts/python/references.h"

namespace python_host {

/// The element that a constant subscript denotes in a container of the language or in an array, each of exactly its own
/// type; a column of a data frame. Empty when the subscript is no constant, when the container is of any other type,
/// when there is no such element, and when the answer would be a copy of very much. No Python error is left; throws the
/// interrupt.
Ref readSubscript(PyObject* container, const Expression& subscript);

}  // namespace python_host
