// What annotations say about attributes besides their type, read as data: nothing is evaluated.
#pragma once

#include <Python.h>

namespace python_host {

/// Whether an annotation makes an attribute final: `Final` or `Final[...]`, or a text that begins so, perhaps within
/// `ClassVar[...]`.
bool isFinalAnnotation(PyObject* annotation);

/// Whether an annotation declares a parameter of the constructor that is no attribute (`InitVar[...]`).
bool isConstructorOnlyAnnotation(PyObject* annotation);

}  // namespace python_host
