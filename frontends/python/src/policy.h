// Under which policy what stands before a dot is evaluated.
#pragma once

#include <pybind11/pybind11.h>

#include "frontends/completion/rules.h"

namespace contextdata::python {

/// What the policy of the process means to the engine.
completion::Rules rulesInForce() noexcept;

/// The name of the policy of the process.
const char* policy() noexcept;

/// Changes it. Throws `pybind11::error_already_set` with ValueError for a name that there is none of.
void setPolicy(const pybind11::str& name);

}  // namespace contextdata::python
