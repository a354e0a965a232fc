#include "frontends/python/src/errors.h"

#include <algorithm>
#include <exception>
#include <iterator>
#include <new>
#include <string_view>

#include "frontends/python/src/python_text.h"
#include "host/exceptions.h"

namespace contextdata::python {

using foundation::core::except::IException;
using foundation::core::except::InterruptException;

namespace {

/// The text that an exception was made with, if it was made with one plain text alone.
std::u16string textOf(PyObject* error) {
    PyObject* arguments = reinterpret_cast<PyBaseExceptionObject*>(error)->args;
    const bool isOne = arguments != nullptr && PyTuple_CheckExact(arguments) && PyTuple_GET_SIZE(arguments) == 1;
    PyObject* text = isOne ? PyTuple_GET_ITEM(arguments, 0) : nullptr;
    return text != nullptr && PyUnicode_CheckExact(text) ? utf16Of(text, PyUnicode_GET_LENGTH(text)) : std::u16string();
}

}  // namespace

RaisedError::RaisedError() noexcept { PyErr_Fetch(&type_, &value_, &traceback_); }

RaisedError::RaisedError(const RaisedError& other) noexcept
    : std::exception(other),
      type_(Py_XNewRef(other.type_)),
      value_(Py_XNewRef(other.value_)),
      traceback_(Py_XNewRef(other.traceback_)) {}

RaisedError::~RaisedError() {
    Py_XDECREF(type_);
    Py_XDECREF(value_);
    Py_XDECREF(traceback_);
}

void RaisedError::restore() const noexcept {
    PyErr_Restore(Py_XNewRef(type_), Py_XNewRef(value_), Py_XNewRef(traceback_));
}

void throwRaised() { throw RaisedError(); }

std::u16string takeErrorText() {
    PyObject* type = nullptr;
    PyObject* value = nullptr;
    PyObject* traceback = nullptr;
    PyErr_Fetch(&type, &value, &traceback);
    PyErr_NormalizeException(&type, &value, &traceback);
    const auto keepType = pybind11::reinterpret_steal<pybind11::object>(type);
    const auto keepValue = pybind11::reinterpret_steal<pybind11::object>(value);
    const auto keepTraceback = pybind11::reinterpret_steal<pybind11::object>(traceback);
    const std::string_view name = reinterpret_cast<PyTypeObject*>(type)->tp_name;
    std::u16string text(name.begin(), name.end());
    const std::u16string details = value == nullptr ? std::u16string() : textOf(value);
    text += details.empty() ? u"" : u": ";
    std::transform(details.begin(), details.end(), std::back_inserter(text),
                   [](char16_t unit) { return unit < u' ' ? u' ' : unit; });
    return text;
}

void setErrorFromException() noexcept {
    try {
        throw;
    } catch (const RaisedError& error) {
        error.restore();
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
