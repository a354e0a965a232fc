#include "hosts/python/evaluation/subscripts.h"

#include <algorithm>

#include "hosts/python/errors.h"
#include "hosts/python/evaluation/constant_keys.h"
#include "hosts/python/objects/frame_columns.h"
#include "hosts/python/values/numpy_values.h"

namespace python_host {

namespace {

/// What a proxy of a dictionary looks like in memory.
struct ProxyLayout {
    PyObject_HEAD PyObject* mapping;
};

/// A slice of a container copies; beyond so many elements it would be felt.
constexpr Py_ssize_t copyLimit = 100'000;

bool isWhole(PyObject* object) { return PyLong_CheckExact(object); }

Ref constantOf(const Expression& expression);

bool isPlainPart(const Expression& part) {
    return part.kind == Expression::Kind::constant && part.steps.empty() &&
           (!part.constant || part.constant.get() == Py_None || isWhole(part.constant.get()));
}

Ref sliceOf(const Expression& slice) {
    PyObject* parts[3] = {nullptr, nullptr, nullptr};
    for (std::size_t index = 0; index < slice.items.size(); ++index) {
        if (!isPlainPart(slice.items[index])) {
            return {};
        }
        parts[index] = slice.items[index].constant.get();
    }
    return orNothing(PySlice_New(parts[0], parts[1], parts[2]));
}

Ref tupleOf(const Expression& expression) {
    Ref tuple = orNothing(PyTuple_New(static_cast<Py_ssize_t>(expression.items.size())));
    for (std::size_t index = 0; tuple && index < expression.items.size(); ++index) {
        Ref item = constantOf(expression.items[index]);
        if (!item) {
            return {};
        }
        PyTuple_SET_ITEM(tuple.get(), static_cast<Py_ssize_t>(index), item.release());
    }
    return tuple;
}

/// The object that a subscript is, if it stands there as it is; empty for one that is read from somewhere.
Ref constantOf(const Expression& expression) {
    if (!expression.steps.empty()) {
        return {};
    }
    switch (expression.kind) {
        case Expression::Kind::constant:
            return expression.constant;
        case Expression::Kind::slice:
            return sliceOf(expression);
        case Expression::Kind::tuple:
            return tupleOf(expression);
        default:
            return {};
    }
}

bool isRow(PyObject* container) {
    return PyList_CheckExact(container) || PyTuple_CheckExact(container) || PyUnicode_CheckExact(container) ||
           PyBytes_CheckExact(container) || Py_TYPE(container) == &PyRange_Type;
}

bool isSmallSlice(PyObject* container, PyObject* slice) {
    if (Py_TYPE(container) == &PyRange_Type) {
        return true;
    }
    Py_ssize_t start = 0;
    Py_ssize_t stop = 0;
    Py_ssize_t step = 0;
    if (PySlice_Unpack(slice, &start, &stop, &step) != 0) {
        PyErr_Clear();
        return false;
    }
    return PySlice_AdjustIndices(PyObject_Size(container), &start, &stop, step) <= copyLimit;
}

Ref readFromRow(PyObject* container, PyObject* index) {
    const bool isReadable =
        isWhole(index) || PyBool_Check(index) || (PySlice_Check(index) && isSmallSlice(container, index));
    return isReadable ? orNothing(PyObject_GetItem(container, index)) : Ref();
}

bool isArrayPart(PyObject* index) { return isWhole(index) || PySlice_Check(index); }

Ref readFromArray(PyObject* array, PyObject* index) {
    bool isReadable = isArrayPart(index) || PyUnicode_CheckExact(index);
    if (PyTuple_CheckExact(index)) {
        PyObject* const* first = &PyTuple_GET_ITEM(index, 0);
        isReadable = std::all_of(first, first + PyTuple_GET_SIZE(index), isArrayPart);
    }
    return isReadable ? numpyItem(array, index) : Ref();
}

/// The exact dictionary that a container is or shows; null for any other container.
PyObject* dictionaryOf(PyObject* container) {
    PyObject* dictionary =
        Py_TYPE(container) == &PyDictProxy_Type ? reinterpret_cast<ProxyLayout*>(container)->mapping : container;
    return dictionary != nullptr && PyDict_CheckExact(dictionary) ? dictionary : nullptr;
}

}  // namespace

Ref readSubscript(PyObject* container, const Expression& subscript) {
    const Ref index = constantOf(subscript);
    if (!index) {
        return {};
    }
    if (isRow(container)) {
        return readFromRow(container, index.get());
    }
    if (PyObject* dictionary = dictionaryOf(container)) {
        return Ref::share(isPlainKey(index.get()) ? findPlainKey(dictionary, index.get()) : nullptr);
    }
    if (Ref column = readFrameColumn(container, index.get())) {
        return column;
    }
    return readFromArray(container, index.get());
}

}  // namespace python_host
