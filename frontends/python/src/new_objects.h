// New Python objects. The binding library's own ways to make them end the process, or raise a wrong error, when there
// is no memory; these throw what `throwRaised` throws.
#pragma once

#include <pybind11/pybind11.h>

#include <cstddef>
#include <utility>

#include "frontends/python/src/errors.h"

namespace contextdata::python {

/// Takes over what a call of the interpreter's made.
inline pybind11::object orThrow(PyObject* made) {
    if (made == nullptr) {
        throwRaised();
    }
    return pybind11::reinterpret_steal<pybind11::object>(made);
}

/// A tuple to be filled.
inline pybind11::tuple newTuple(std::size_t size) {
    return pybind11::reinterpret_steal<pybind11::tuple>(orThrow(PyTuple_New(static_cast<Py_ssize_t>(size))).release());
}

/// A tuple of what is there.
template <class... Parts>
pybind11::tuple tupleWith(Parts... parts) {
    pybind11::tuple tuple = newTuple(sizeof...(parts));
    Py_ssize_t place = 0;
    (PyTuple_SET_ITEM(tuple.ptr(), place++, parts.release().ptr()), ...);
    return tuple;
}

inline pybind11::list newList() {
    return pybind11::reinterpret_steal<pybind11::list>(orThrow(PyList_New(0)).release());
}

inline void append(const pybind11::list& list, const pybind11::object& item) {
    if (PyList_Append(list.ptr(), item.ptr()) != 0) {
        throwRaised();
    }
}

/// A str of plain ASCII.
inline pybind11::object strOfAscii(const char* text) { return orThrow(PyUnicode_FromString(text)); }

}  // namespace contextdata::python
