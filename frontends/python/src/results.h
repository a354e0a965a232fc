// What Python receives: `Completion`, one name, and `Completions`, the answer to one question.
#pragma once

#include <pybind11/pybind11.h>

#include "frontends/completion/item.h"

namespace contextdata::python {

/// Makes the two types and adds them to the module. Called once, before anything else here.
void addResultTypes(pybind11::module_& module);

/// A new `Completion`. `definer` is the item's class as a str, or None; the caller makes it, as many items share one.
pybind11::object completionOf(const completion::Item& item, pybind11::object definer);

/// A new `Completions`; positions are in code points, `items` is a tuple of `Completion`.
pybind11::object completionsOf(Py_ssize_t start, Py_ssize_t end, pybind11::object items);

}  // namespace contextdata::python
