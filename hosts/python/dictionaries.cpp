#include "hosts/python/dictionaries.h"

namespace python_host {

namespace {

/// How the interpreter's table of keys begins; it says there what kinds of keys the table holds.
struct KeyTableHead {
    Py_ssize_t references;
    std::uint8_t log2Size;
    std::uint8_t log2IndexBytes;
    std::uint8_t kind;
};

constexpr std::uint8_t keysOfAnyKind = 0;

bool sameText(PyObject* left, PyObject* right) noexcept {
    return left == right || (PyUnicode_IS_READY(left) && PyUnicode_IS_READY(right) && _PyUnicode_EQ(left, right) == 1);
}

PyObject* findByWalking(PyObject* dictionary, PyObject* key) noexcept {
    Py_ssize_t position = 0;
    PyObject* candidate = nullptr;
    PyObject* value = nullptr;
    while (PyDict_Next(dictionary, &position, &candidate, &value) != 0) {
        if (PyUnicode_CheckExact(candidate) && sameText(candidate, key)) {
            return value;
        }
    }
    return nullptr;
}

}  // namespace

bool hasOnlyTextKeys(PyObject* dictionary) noexcept {
    const auto* keys = reinterpret_cast<PyDictObject*>(dictionary)->ma_keys;
    return reinterpret_cast<const KeyTableHead*>(keys)->kind != keysOfAnyKind;
}

PyObject* findItem(PyObject* dictionary, PyObject* key) noexcept {
    if (dictionary == nullptr || !PyDict_Check(dictionary)) {
        return nullptr;
    }
    return hasOnlyTextKeys(dictionary) ? PyDict_GetItemWithError(dictionary, key) : findByWalking(dictionary, key);
}

}  // namespace python_host
