// What the code of a class is offered beyond what everybody is, in Python's spelling.
#pragma once

#include <pybind11/pybind11.h>

#include "frontends/completion/item.h"
#include "frontends/python/src/asker.h"

namespace contextdata::python {

/// What a class, and an object of it, offer to an asker and not to everybody; empty for nobody. `object` is null when
/// the class itself is meant.
///
/// Of an object's own attributes, `_name` is for classes that the object's class derives from or that derive from it,
/// and a private name for the class whose name it carries, if the object is of it. Private names are spelled as the
/// asker writes them; one that it cannot write is left out. The interrupt passes.
completion::Items insiderItems(const ZELKContextData::ResolvedClassID& cls, PyObject* object, const Asker& asker);

}  // namespace contextdata::python
