// What Python receives: `Completion`, one name, and `Completions`, the answer to one question.
#pragma once

#include <pybind11/pybind11.h>

#include "frontends/completion/item.h"

namespace contextdata::python {

/// Makes the two types and adds them to the module. Called once, before anything else here.
void addResultTypes(pybind11::module_& module);

/// A new `Completion`. `definer` is the item's class as a str, or None; the caller makes it, as many items share one.
pybind11::object completionOf(const completion::Item& item, pybind11::object definer);

/// The same of its parts; `name` is a str.
pybind11::object completionOf(pybind11::object name, completion::Kind kind, pybind11::object definer);

/// The name of a `Completion`, borrowed from it.
PyObject* nameOf(PyObject* completion) noexcept;

/// What a `Completions` holds. Positions are in code points.
struct Answer {
    Py_ssize_t start = 0;
    Py_ssize_t end = 0;
    Py_ssize_t leftOut = 0;
    pybind11::object items;   ///< a tuple of `Completion`
    pybind11::object reason;  ///< a str
};

/// A new `Completions`.
pybind11::object completionsOf(Answer answer);

}  // namespace contextdata::python
