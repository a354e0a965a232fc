// Classes of a Java virtual machine that the session has started through its bridge. Nothing here imports the bridge,
// or starts the machine.
#pragma once

#include <Python.h>

#include <string>

#include "hosts/python/references.h"

namespace python_host {

/// The Python class that stands for a Java class, by its full name; empty while no machine runs, and for an unknown
/// name.
///
/// Classes that the bridge knows already are found wherever they come from. Of the others those of the platform
/// (`java.` and onwards) alone are loaded: loading a class runs its initialisers, and those of others are a person's.
Ref findJavaClass(const std::string& name);

/// Whether a type stands for a Java class.
bool isJavaClass(PyTypeObject* type);

/// Whether an object is of Java: an object of a Java class, or a method of one.
bool isOfJava(PyObject* object);

}  // namespace python_host
