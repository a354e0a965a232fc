// The texts by which a value may be subscripted.
#pragma once

#include <Python.h>

#include "hosts/python/objects/name_list.h"

namespace python_host {

/// The keys of a dictionary, the columns of a table, the labels of a series and the fields of structured data, as far
/// as they are exact texts, each once, in their own order. Of a subclass of dict these are the keys that it stores, as
/// no method of it is called. Empty for any other object. Throws the interrupt.
NameList subscriptKeysOf(PyObject* object);

}  // namespace python_host
