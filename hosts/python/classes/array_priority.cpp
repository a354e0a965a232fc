#include "hosts/python/classes/array_priority.h"

#include <limits>

#include "hosts/python/classes/resolution_order.h"
#include "hosts/python/keys.h"
#include "hosts/python/values/callables.h"

namespace python_host {

namespace {

double valueOfInteger(PyObject* number) {
    int overflow = 0;
    const long long value = PyLong_AsLongLongAndOverflow(number, &overflow);
    return overflow == 0 ? static_cast<double>(value) : overflow * std::numeric_limits<double>::infinity();
}

/// The array package computes its own priorities, which are fixed numbers.
std::optional<double> priorityOfPackage(const PyTypeObject* owner) {
    constexpr double ofArrays = 0.0;
    constexpr double ofScalars = -1000000.0;
    const bool isCompiledIn = (owner->tp_flags & Py_TPFLAGS_HEAPTYPE) == 0;
    if (isCompiledIn && isNamedType(owner, "numpy.ndarray")) {
        return ofArrays;
    }
    return isCompiledIn && isNamedType(owner, "numpy.generic") ? std::optional(ofScalars) : std::nullopt;
}

}  // namespace

std::optional<double> arrayPriorityOf(PyTypeObject* type) {
    const RawAttribute priority = findInOrder(type, keys().priority);
    if (priority.value == nullptr) {
        return std::nullopt;
    }
    if (PyFloat_CheckExact(priority.value)) {
        return PyFloat_AS_DOUBLE(priority.value);
    }
    if (PyLong_CheckExact(priority.value)) {
        return valueOfInteger(priority.value);
    }
    return Py_TYPE(priority.value) == &PyGetSetDescr_Type ? priorityOfPackage(priority.owner) : std::nullopt;
}

}  // namespace python_host
