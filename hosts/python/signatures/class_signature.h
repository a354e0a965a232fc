// What making an object of a class takes.
#pragma once

#include <Python.h>

#include <optional>

#include "hosts/python/references.h"
#include "hosts/python/signatures/signatures.h"

namespace python_host {

/// Either the function that takes the arguments, whose first parameter is the object or the class, or else a signature
/// that stands for itself; neither for a class that declares nothing.
struct Constructor {
    Ref function;
    std::optional<Signature> signature;
};

/// What runs when a class is called: the call of its metaclass, or the nearest `__init__` or `__new__` along the
/// resolution order, or what the documentation of a class in C says.
Constructor constructorOf(PyTypeObject* type);

}  // namespace python_host
