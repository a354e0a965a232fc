// How Python's errors and the host's exceptions meet.
#pragma once

#include <Python.h>

#include "host/exceptions.h"
#include "hosts/python/references.h"

namespace python_host {

/// What the host throws when Python fails at something; the message names the kind of Python error.
class PythonFailure final : public foundation::core::except::IException {
public:
    using IException::IException;
    PythonFailure(const PythonFailure& other) = default;
    PythonFailure& operator=(const PythonFailure& other) = default;
    ~PythonFailure() noexcept override = default;

    const boost::exception_detail::clone_base* clone() const override;
    [[noreturn]] void rethrow() const override;
};

/// Puts the error that a caller has pending aside for the life of the guard: most of the C API must not be called
/// with an error set, and a question asked of the host must not disturb it.
class PendingErrorGuard {
public:
    PendingErrorGuard() noexcept {
        if (PyErr_Occurred() != nullptr) {
            PyErr_Fetch(&type_, &value_, &traceback_);
        }
    }
    PendingErrorGuard(const PendingErrorGuard&) = delete;
    PendingErrorGuard& operator=(const PendingErrorGuard&) = delete;
    ~PendingErrorGuard() {
        if (type_ != nullptr) {
            PyErr_Restore(type_, value_, traceback_);
        }
    }

private:
    PyObject* type_ = nullptr;
    PyObject* value_ = nullptr;
    PyObject* traceback_ = nullptr;
};

/// Turns the Python error that is set into a host exception and clears it: KeyboardInterrupt becomes the interrupt,
/// anything else a failure.
[[noreturn]] void throwPythonError();

/// Clears the Python error that is set. An interrupt that cannot be thrown here is not lost: the interpreter raises it
/// again at its next check.
inline void dropError() noexcept {
    if (PyErr_Occurred() != nullptr && PyErr_ExceptionMatches(PyExc_KeyboardInterrupt) != 0) {
        PyErr_SetInterrupt();
    }
    PyErr_Clear();
}

/// Passes an object on; throws the Python error that is set when it is null.
inline PyObject* orThrow(PyObject* object) {
    if (object == nullptr) {
        throwPythonError();
    }
    return object;
}

/// Takes over what a call made; nothing, with the error dropped, when it made none.
inline Ref orNothing(PyObject* made) noexcept {
    if (made == nullptr) {
        PyErr_Clear();
    }
    return Ref::steal(made);
}

/// The same where Python code may have run: KeyboardInterrupt is thrown.
inline Ref orNothingUnlessInterrupted(PyObject* made) {
    if (made == nullptr && PyErr_Occurred() != nullptr && PyErr_ExceptionMatches(PyExc_KeyboardInterrupt) != 0) {
        throwPythonError();
    }
    return orNothing(made);
}

/// Lets signal handlers run, so that Ctrl-C ends a long walk; does nothing outside the main thread.
void checkForInterrupt();

}  // namespace python_host
