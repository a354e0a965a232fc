// The words that a program may write where it declares a class or its members.
#pragma once

#include <Python.h>

#include <string>
#include <vector>

namespace python_host {

/// Each answers for a type that is alive, with what that type itself brings: what its bases bring is theirs to tell.

/// Keyword arguments of the class statement: the metaclass, and what the type's own hook for subclasses takes by name.
std::vector<std::string> classKeywords(PyTypeObject* type);

/// Decorators that make a method a property, and for dataclasses the arguments of a field.
std::vector<std::string> propertyKeywords(PyTypeObject* type);

/// Decorators of methods.
std::vector<std::string> methodKeywords(PyTypeObject* type);

/// Decorators that make a method a handler; only classes with traits have any.
std::vector<std::string> eventKeywords(PyTypeObject* type);

}  // namespace python_host
