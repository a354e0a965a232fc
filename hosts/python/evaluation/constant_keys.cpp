#include "hosts/python/evaluation/constant_keys.h"

#include "hosts/python/dictionaries.h"

namespace python_host {

namespace {

/// A walk over so many entries takes a fraction of a millisecond.
constexpr Py_ssize_t walkLimit = 100'000;

bool isPlainAtom(PyObject* object) {
    const PyTypeObject* type = Py_TYPE(object);
    return type == &PyUnicode_Type || type == &PyLong_Type || type == &PyBool_Type || type == &PyFloat_Type ||
           type == &PyComplex_Type || type == &PyBytes_Type || object == Py_None;
}

/// Keys of a user's may nest as deep as they like; those are no constants.
bool isPlainWithin(PyObject* object, int depth) {
    if (!PyTuple_CheckExact(object)) {
        return isPlainAtom(object);
    }
    if (depth == 0) {
        return false;
    }
    for (Py_ssize_t index = 0; index < PyTuple_GET_SIZE(object); ++index) {
        if (!isPlainWithin(PyTuple_GET_ITEM(object, index), depth - 1)) {
            return false;
        }
    }
    return true;
}

bool areEqual(PyObject* left, PyObject* right) {
    const int equal = PyObject_RichCompareBool(left, right, Py_EQ);
    if (equal < 0) {
        // Of bytes and texts, when the interpreter is told to warn of comparing them, and warnings are errors.
        PyErr_Clear();
    }
    return equal == 1;
}

/// A comparison of bytes with text is never true, and may warn.
bool areComparable(PyObject* left, PyObject* right) {
    const bool mixesTexts =
        (PyBytes_Check(left) && PyUnicode_Check(right)) || (PyUnicode_Check(left) && PyBytes_Check(right)) ||
        (PyBytes_Check(left) && PyLong_Check(right)) || (PyLong_Check(left) && PyBytes_Check(right));
    return !mixesTexts;
}

PyObject* findByWalking(PyObject* dictionary, PyObject* key) {
    const Py_hash_t sought = PyObject_Hash(key);
    if (PyDict_GET_SIZE(dictionary) > walkLimit || sought == -1) {
        PyErr_Clear();
        return nullptr;
    }
    Py_ssize_t position = 0;
    PyObject* candidate = nullptr;
    PyObject* value = nullptr;
    Py_hash_t hash = 0;
    while (_PyDict_Next(dictionary, &position, &candidate, &value, &hash) != 0) {
        if (hash == sought && isPlainKey(candidate) && areComparable(candidate, key) && areEqual(candidate, key)) {
            return value;
        }
    }
    return nullptr;
}

}  // namespace

bool isPlainKey(PyObject* object) {
    constexpr int deepest = 10;
    return isPlainWithin(object, deepest);
}

PyObject* findPlainKey(PyObject* dictionary, PyObject* key) {
    const bool canLookUp = PyUnicode_CheckExact(key) && hasOnlyTextKeys(dictionary);
    return canLookUp ? findItem(dictionary, key) : findByWalking(dictionary, key);
}

}  // namespace python_host
