#include "frontends/python/src/variables.h"

#include <array>
#include <cstdint>

#include "contextdata/values.h"
#include "frontends/python/src/errors.h"
#include "frontends/python/src/python_text.h"
#include "hosts/python/python_host.h"

namespace contextdata::python {

namespace {

bool walkFindsOnlyStrKeys(PyObject* dictionary) {
    Py_ssize_t position = 0;
    PyObject* key = nullptr;
    PyObject* value = nullptr;
    while (PyDict_Next(dictionary, &position, &key, &value) != 0) {
        if (!PyUnicode_CheckExact(key)) {
            return false;
        }
    }
    return true;
}

/// Whether looking a str up runs no code: a key of another type with the same hash would be asked whether it is
/// equal. The walk that tells is remembered by the version of the dict, which no other state of any dict has.
bool isSafeToSearch(PyObject* dictionary) {
#if PY_VERSION_HEX < 0x030C0000
    static std::array<std::uint64_t, 16> versionsFoundSafe = {};
    const std::uint64_t version = reinterpret_cast<PyDictObject*>(dictionary)->ma_version_tag;
    std::uint64_t& known = versionsFoundSafe[version % versionsFoundSafe.size()];
    if (known == version) {
        return true;
    }
    const bool isSafe = walkFindsOnlyStrKeys(dictionary);
    known = isSafe ? version : known;
    return isSafe;
#else
    return walkFindsOnlyStrKeys(dictionary);
#endif
}

PyObject* findByWalking(PyObject* dictionary, PyObject* name) {
    Py_ssize_t position = 0;
    PyObject* key = nullptr;
    PyObject* value = nullptr;
    while (PyDict_Next(dictionary, &position, &key, &value) != 0) {
        if (PyUnicode_CheckExact(key) && PyUnicode_Compare(key, name) == 0) {
            return value;
        }
    }
    return nullptr;
}

/// Borrowed from the dict; null when there is no such name.
PyObject* findIn(PyObject* dictionary, PyObject* name) {
    if (!isSafeToSearch(dictionary)) {
        return findByWalking(dictionary, name);
    }
    PyObject* value = PyDict_GetItemWithError(dictionary, name);
    if (value == nullptr && PyErr_Occurred() != nullptr) {
        throwRaised();
    }
    return value;
}

/// The same for what may be missing, or no dictionary at all.
PyObject* findInAny(PyObject* scope, PyObject* name) {
    return scope != nullptr && PyDict_Check(scope) ? findIn(scope, name) : nullptr;
}

}  // namespace

PyObject* findName(PyObject* dictionary, std::u16string_view name) { return findIn(dictionary, strOf(name).ptr()); }

qxSharedArray Variables::find(const std::u16string& name) {
    const pybind11::object text = strOf(name);
    for (PyObject* scope : {workspace_.locals(), workspace_.globals(), python_host::builtinNames()}) {
        if (PyObject* value = findInAny(scope, text.ptr())) {
            return makeSharedPtr(python_host::wrap(value).release());
        }
    }
    return {};
}

}  // namespace contextdata::python
