#include "hosts/python/errors.h"

namespace python_host {

const boost::exception_detail::clone_base* PythonFailure::clone() const { return new PythonFailure(*this); }

void PythonFailure::rethrow() const { throw PythonFailure(*this); }

void throwPythonError() {
    PyObject* type = PyErr_Occurred();
    if (type == nullptr) {
        throw PythonFailure("a Python call failed without an error");
    }
    const bool interrupted = PyErr_ExceptionMatches(PyExc_KeyboardInterrupt) != 0;
    const std::string name = PyType_Check(type) ? reinterpret_cast<PyTypeObject*>(type)->tp_name : "Python error";
    PyErr_Clear();
    if (interrupted) {
        throw foundation::core::except::InterruptException();
    }
    throw PythonFailure(name);
}

void checkForInterrupt() {
    if (PyErr_CheckSignals() != 0) {
        throwPythonError();
    }
}

}  // namespace python_host
