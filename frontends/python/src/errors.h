// How what is thrown here reaches Python.
#pragma once

#include <pybind11/pybind11.h>

#include <string>

namespace contextdata::python {

/// Sets the Python error for the exception that is being handled: the interrupt becomes KeyboardInterrupt.
void setErrorFromException() noexcept;

/// Clears the Python error that is set and answers what it says in one line: its type, and its text where telling that
/// runs no code.
std::u16string takeErrorText();

/// The result of a function that Python calls; null with the error set when it throws.
template <class Function>
PyObject* guarded(Function function) noexcept {
    try {
        return function().release().ptr();
    } catch (...) {
        setErrorFromException();
        return nullptr;
    }
}

}  // namespace contextdata::python
