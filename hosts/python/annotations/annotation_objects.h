// Reading the objects that annotations are made of as data: no attribute of theirs is asked.
#pragma once

#include <Python.h>

#include <string>
#include <string_view>

#include "hosts/python/references.h"

namespace python_host {

/// What an object itself keeps under a name, in its dictionary or in a slot; empty when it keeps nothing there.
///
/// Looking may create the dictionary, and with that start a garbage collection: hold on to what is needed afterwards.
Ref storedAttribute(PyObject* object, std::string_view name);

/// The same, or else what the object's class keeps under the name for all of its objects.
Ref storedOrSharedAttribute(PyObject* object, std::string_view name);

/// What an object keeps under a name if that is a plain str; empty otherwise.
std::string storedText(PyObject* object, std::string_view name);

/// A class that a loaded module binds to a name, borrowed; null when there is none.
PyTypeObject* loadedClass(std::string_view module, std::string_view name);

/// Whether the object's real type is such a class or derives from it.
bool isOfLoadedClass(PyObject* object, std::string_view module, std::string_view name);

/// The value of an exact dictionary's plain str key; empty for anything else.
Ref itemOfDictionary(PyObject* dictionary, std::string_view key);

}  // namespace python_host
