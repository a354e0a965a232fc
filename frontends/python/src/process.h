// What becomes of the library when the interpreter is another one, when the process forks, and when it ends.
#pragma once

#include <pybind11/pybind11.h>

namespace contextdata::python {

/// False, with ImportError set, in a subinterpreter: the objects of several interpreters must not meet, and what is
/// kept here is kept once in the process.
bool requireMainInterpreter() noexcept;

/// Has the interpreter tell when it forked and when it ends, so that threads that are gone by then leave no stream
/// diverted. Throws `pybind11::error_already_set`.
void followProcess();

}  // namespace contextdata::python
