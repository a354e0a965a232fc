// What the getter of a property says of its result.
#pragma once

#include <Python.h>

#include "hosts/python/references.h"

namespace python_host {

/// The annotation of a getter's result, and the names that the getter sees; both empty when it has none.
struct GetterResult {
    Ref annotation;
    Ref globals;
};

/// Of a property, also a cached one, whose getter is written in Python; empty for any other value.
GetterResult resultOfGetter(PyObject* value);

}  // namespace python_host
