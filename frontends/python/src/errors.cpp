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

std::u16string takeErrorText() {
    const pybind11::error_already_set taken;
    PyErr_Clear();
    const std::string_view type = reinterpret_cast<PyTypeObject*>(taken.type().ptr())->tp_name;
    std::u16string text(type.begin(), type.end());
    const std::u16string details = taken.value() ? textOf(taken.value().ptr()) : std::u16string();
    text += details.empty() ? u"" : u": ";
    std::transform(details.begin(), details.end(), std::back_inserter(text),
                   [](char16_t unit) { return unit < u' ' ? u' ' : unit; });
    return text;
}

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
