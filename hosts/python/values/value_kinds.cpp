#include "hosts/python/values/value_kinds.h"

#include "hosts/python/classes/class_registry.h"
#include "hosts/python/classes/resolution_order.h"
#include "hosts/python/python_host.h"
#include "hosts/python/python_text.h"
#include "hosts/python/values/callables.h"
#include "hosts/python/values/numpy_values.h"

/// The type of plain records of attributes; exported by the interpreter, though not declared for the public.
extern "C" {
extern PyTypeObject _PyNamespace_Type;  // NOLINT(bugprone-reserved-identifier): the interpreter's own name
}

namespace python_host {

namespace {

bool isOpaqueType(const PyTypeObject* type) {
    return type == Py_TYPE(Py_None) || type == Py_TYPE(Py_Ellipsis) || type == Py_TYPE(Py_NotImplemented) ||
           type == &PyCapsule_Type || type == &PyGen_Type || type == &PyCoro_Type || type == &PyAsyncGen_Type;
}

/// Objects of a foreign virtual machine, which the bridge to it derives from a type of its own.
bool isForeign(PyTypeObject* type) {
    PyObject* order = type->tp_mro;
    for (Py_ssize_t index = 0; order != nullptr && index < PyTuple_GET_SIZE(order); ++index) {
        if (isNamedType(asType(PyTuple_GET_ITEM(order, index)), "_jpype._JObject")) {
            return true;
        }
    }
    return false;
}

bool isFunctionHandle(PyObject* object) { return PyType_Check(object) || isKnownFunction(object); }

qxClassID simpleKindOf(PyObject* object) {
    const PyTypeObject* type = Py_TYPE(object);
    if (type == &PyUnicode_Type) {
        return qxClassID::character;
    }
    if (type == &PyFloat_Type || type == &PyComplex_Type) {
        return qxClassID::float64;
    }
    if (type == &PyLong_Type) {
        return qxClassID::int64;
    }
    if (type == &PyBool_Type) {
        return qxClassID::logical;
    }
    if (type == &PyList_Type || type == &PyTuple_Type) {
        return qxClassID::cell;
    }
    return type == &PyDict_Type || type == &_PyNamespace_Type ? qxClassID::structure : qxClassID::unknown;
}

}  // namespace

qxClassID classIdOfObject(PyObject* object) {
    if (const qxClassID simple = simpleKindOf(object); simple != qxClassID::unknown) {
        return simple;
    }
    if (const auto kind = numpyKindOf(object)) {
        return *kind;
    }
    if (isFunctionHandle(object)) {
        return qxClassID::functionHandle;
    }
    if (isOpaqueType(Py_TYPE(object)) || isForeign(Py_TYPE(object))) {
        return qxClassID::opaque;
    }
    return static_cast<qxClassID>(ClassRegistry::instance().objectOf(Py_TYPE(object)).number());
}

const char* kindName(qxClassID id) noexcept {
    switch (id) {
        case qxClassID::cell:
            return "cell";
        case qxClassID::structure:
            return "struct";
        case qxClassID::logical:
            return "logical";
        case qxClassID::character:
            return "char";
        case qxClassID::float64:
            return "double";
        case qxClassID::float32:
            return "single";
        case qxClassID::int8:
            return "int8";
        case qxClassID::uint8:
            return "uint8";
        case qxClassID::int16:
            return "int16";
        case qxClassID::uint16:
            return "uint16";
        case qxClassID::int32:
            return "int32";
        case qxClassID::uint32:
            return "uint32";
        case qxClassID::int64:
            return "int64";
        case qxClassID::uint64:
            return "uint64";
        case qxClassID::functionHandle:
            return "function_handle";
        default:
            return nullptr;
    }
}

std::vector<std::size_t> extentsOf(PyObject* object) {
    if (PyUnicode_CheckExact(object)) {
        return {1, utf16LengthOf(object)};
    }
    if (PyList_CheckExact(object) || PyTuple_CheckExact(object)) {
        return {1, static_cast<std::size_t>(Py_SIZE(object))};
    }
    return numpyExtentsOf(object).value_or(std::vector<std::size_t>{1, 1});
}

Ref elementOf(PyObject* object, std::size_t index) {
    if (PyList_CheckExact(object) || PyTuple_CheckExact(object)) {
        const bool exists = index < static_cast<std::size_t>(Py_SIZE(object));
        return exists ? Ref::share(PySequence_Fast_GET_ITEM(object, static_cast<Py_ssize_t>(index))) : Ref();
    }
    return numpyElementOf(object, index);
}

const double* doublesOf(PyObject* object) {
    if (PyFloat_CheckExact(object)) {
        return &reinterpret_cast<PyFloatObject*>(object)->ob_fval;
    }
    return numpyDoublesOf(object);
}

}  // namespace python_host
