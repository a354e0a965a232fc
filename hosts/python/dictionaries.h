// Reading dictionaries without running anybody's code.
//
// A look-up compares the key that is sought with keys of the same hash; when those are not plain str, that comparison
// is code of a user. So dictionaries with other keys are read by walking.
#pragma once

#include <Python.h>

#include <cstdint>

namespace python_host {

/// The value of a plain str key, borrowed from the dictionary; null when there is none, and when `dictionary` is null
/// or no dictionary. A subclass's storage is read, its methods are not called.
PyObject* findItem(PyObject* dictionary, PyObject* key) noexcept;

/// Whether all keys are plain str, so that a look-up of a str runs no code.
bool hasOnlyTextKeys(PyObject* dictionary) noexcept;

/// A number that no other state of any dictionary has.
inline std::uint64_t versionOf(PyObject* dictionary) noexcept {
    return reinterpret_cast<PyDictObject*>(dictionary)->ma_version_tag;
}

/// Calls `take(key, value)` for each entry whose key is a plain str, in insertion order. `take` must not create
/// objects that the garbage collector counts: a collection runs finalisers, and those may change the dictionary.
template <class Take>
void eachTextItem(PyObject* dictionary, Take take) {
    if (dictionary == nullptr || !PyDict_Check(dictionary)) {
        return;
    }
    Py_ssize_t position = 0;
    PyObject* key = nullptr;
    PyObject* value = nullptr;
    while (PyDict_Next(dictionary, &position, &key, &value) != 0) {
        if (PyUnicode_CheckExact(key)) {
            take(key, value);
        }
    }
}

}  // namespace python_host
