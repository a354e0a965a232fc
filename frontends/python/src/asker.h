// In whose code a text stands.
#pragma once

#include <pybind11/pybind11.h>

#include "contextdata/resolved_class_id.h"

namespace contextdata::python {

struct Asker {
    /// The class; null for none.
    ZELKContextData::ResolvedClassID cls;
    /// The text is source of that class, in which private names stand as they are written. A debugger evaluates what
    /// is typed as if it stood outside, so that there they are written as they are stored.
    bool writesSource = false;
};

/// The class that a caller named: by a str ("module.Class", as the prompt would understand it) or by itself. Throws
/// `pybind11::error_already_set` with TypeError for anything else, with ValueError for the name of no class.
Asker askerNamed(PyObject* inside);

/// The class whose method the debugger is in; nobody when it holds nothing, or is in no method.
Asker askerInFocus();

}  // namespace contextdata::python
