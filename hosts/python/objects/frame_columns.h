// The columns of data frames.
#pragma once

#include <Python.h>

#include "hosts/python/references.h"

namespace python_host {

/// The column of a name, a plain str, of a frame of exactly the library's own class; empty for every other object, and
/// when code of a user could have a part in reading it. No Python error is left; throws the interrupt.
Ref readFrameColumn(PyObject* frame, PyObject* name);

}  // namespace python_host
