// Looking a constant up in a dictionary without asking anybody's keys whether they are equal.
#pragma once

#include <Python.h>

namespace python_host {

/// Whether an object is a number, a str, bytes, a truth value, None, or a tuple of these, each of exactly that type:
/// what is hashed and compared by the language itself.
bool isPlainKey(PyObject* object);

/// The value of a plain key, borrowed from an exact dictionary; null when there is none, when only a key of another
/// kind could be equal to it, and when the dictionary would take too long to walk. Leaves no Python error.
PyObject* findPlainKey(PyObject* dictionary, PyObject* key);

}  // namespace python_host
