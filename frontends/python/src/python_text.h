// Between Python's str and the UTF-16 text of the engine.
#pragma once

#include <pybind11/pybind11.h>

#include <string>
#include <string_view>

namespace contextdata::python {

/// The first `length` code points of a str in UTF-16. A lone surrogate stays what it is.
std::u16string utf16Of(PyObject* text, Py_ssize_t length);

/// The same of all of a str, into a text that is there, which spares memory for those who look at many.
void assignUtf16(std::u16string& units, PyObject* text);

/// A new str; throws `pybind11::error_already_set` when there is no memory for it.
pybind11::object strOf(std::u16string_view text);

/// Whether a dict's key is a name that may follow a dot and that custom calls public.
bool isPublicName(PyObject* key);

/// Where the last `units` UTF-16 units before `end` begin, in code points of `text`; `end` is in code points.
Py_ssize_t codePointBefore(PyObject* text, Py_ssize_t end, std::size_t units);

}  // namespace contextdata::python
