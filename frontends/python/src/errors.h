// How what is thrown here reaches Python.
#pragma once

#include <pybind11/pybind11.h>

#include <exception>
#include <string>

namespace contextdata::python {

/// A Python error on its way through C++, as it was set: the binding library's own makes an object of it first, which
/// fails where there is no memory.
class RaisedError final : public std::exception {
public:
    /// Takes the error that is set.
    RaisedError() noexcept;
    RaisedError(const RaisedError& other) noexcept;
    RaisedError& operator=(const RaisedError&) = delete;
    ~RaisedError() override;

    const char* what() const noexcept override { return "a Python error"; }
    /// Sets the error again.
    void restore() const noexcept;

private:
    PyObject* type_ = nullptr;
    PyObject* value_ = nullptr;
    PyObject* traceback_ = nullptr;
};

/// Throws the Python error that is set.
[[noreturn]] void throwRaised();

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
