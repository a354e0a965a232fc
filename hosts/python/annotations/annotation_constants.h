// Plain values that stand in annotations: in a `Literal`, as a size, as a limit.
#pragma once

#include <Python.h>

#include <optional>
#include <string>

#include "hosts/python/annotations/data_type.h"

namespace python_host {

/// Whether an object is exactly one of the language's own: `None`, `...`, a bool, a number, a str or bytes.
bool isPlainConstant(PyObject* object) noexcept;

/// Whether an object is exactly an int or a float; a bool is none.
bool isPlainNumber(PyObject* object) noexcept;

/// A plain constant or a member of an enumeration as source code writes it; nothing for any other object.
std::optional<std::string> sourceTextOf(PyObject* object);

/// A plain constant or a member of an enumeration as a value of a type; nothing for any other object.
std::optional<DataTypeValue> valueOf(PyObject* object);

}  // namespace python_host
