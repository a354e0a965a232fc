// The names that an object itself adds to those of its class. They are read anew at every question.
#pragma once

#include <pybind11/pybind11.h>

#include <vector>

#include "frontends/completion/item.h"
#include "host/array_library.h"

namespace contextdata::python {

/// What the own attributes of an object are: those of a record are its fields.
completion::Kind kindOfOwnNames(const qxSharedArray& value);

/// The names that an object has of its own, in its own order; they may repeat names of its class. `value` stands for
/// `object`. May run the directory hook of the class; the interrupt passes.
///
/// "properties" is not asked for, as it would repeat all that the class offers.
std::vector<completion::Item> ownNames(const qxSharedArray& value, PyObject* object);

}  // namespace contextdata::python
