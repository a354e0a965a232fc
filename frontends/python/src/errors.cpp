#include "frontends/python/src/errors.h"

#include <exception>
#include <new>

#include "host/exceptions.h"

namespace contextdata::python {

using foundation::core::except::IException;
using foundation::core::except::InterruptException;

void setErrorFromException() noexcept {
    try {
        throw;
    } catch (pybind11::error_already_set& error) {
        error.restore();
    } catch (const InterruptException&) {
        PyErr_SetNone(PyExc_KeyboardInterrupt);
    } catch (const std::bad_alloc&) {
        PyErr_NoMemory();
    } catch (const IException& failure) {
        PyErr_SetString(PyExc_RuntimeError, failure.getMessage().c_str());
    } catch (const std::exception& failure) {
        PyErr_SetString(PyExc_RuntimeError, failure.what());
    } catch (...) {
        PyErr_SetString(PyExc_SystemError, "the completion engine failed without saying why");
    }
}

}  // namespace contextdata::python
