// The array library's functions that work element by element.
#pragma once

#include <Python.h>

#include <optional>

namespace python_host {

struct UniversalFunction {
    int inputCount = 0;
    bool worksOnSubarrays = false;  ///< over cores of several elements, such as the product of matrices
};

/// What an exact universal function takes; nothing for any other object.
std::optional<UniversalFunction> universalFunctionOf(PyObject* object) noexcept;

}  // namespace python_host
