// Giving up objects on whatever thread a value ends.
#pragma once

#include <Python.h>

namespace python_host {

/// Gives up one reference. Without the GIL the object waits until somebody who holds it comes along, since fetching the
/// GIL from a busy interpreter takes long; once the interpreter is gone, nothing is done.
void releaseObject(PyObject* object) noexcept;

/// Gives up what waits. The GIL is held.
void releaseWaitingObjects() noexcept;

}  // namespace python_host
