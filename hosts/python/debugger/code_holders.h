// Which classes hold a piece of code as one of their methods.
#pragma once

#include <Python.h>

#include <cstddef>

namespace python_host {

/// How far to look for code behind the entries of a class.
struct CodeSearch {
    PyObject* code = nullptr;
    /// Whether a decorated function counts, too, as long as its wrapper says what it wraps.
    bool throughWrappers = false;
    /// How many functions deep the code may stand within the method; 0 for the method's own code.
    std::size_t nesting = 0;
};

/// Whether the type's own dictionary has a method, a property or a cached property whose function runs the code. All
/// is read as data. `type` is kept alive by the caller.
bool holdsCode(PyTypeObject* type, const CodeSearch& search);

}  // namespace python_host
