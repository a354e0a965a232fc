#include "hosts/python/values/numpy_values.h"

#define NPY_NO_DEPRECATED_API NPY_1_22_API_VERSION
#define PY_ARRAY_UNIQUE_SYMBOL contextdata_python_host_array_api
#define NO_IMPORT_ARRAY
#include <numpy/arrayobject.h>
#include <numpy/arrayscalars.h>

#include <algorithm>

#include "hosts/python/dictionaries.h"
#include "hosts/python/keys.h"
#include "hosts/python/namespaces/live_modules.h"
#include "hosts/python/values/callables.h"

/// The function table of the array package; null until the session has loaded the package.
void** contextdata_python_host_array_api = nullptr;

namespace python_host {

namespace {

void** readApi() {
    PyObject* capsule = findInModule("numpy.core._multiarray_umath", keys().arrayApi);
    if (capsule == nullptr || !PyCapsule_CheckExact(capsule)) {
        return nullptr;
    }
    void* table = PyCapsule_GetPointer(capsule, nullptr);
    if (table == nullptr) {
        PyErr_Clear();
    }
    return static_cast<void**>(table);
}

PyArrayObject* asExactArray(PyObject* object) {
    return isNumpyUsable() && PyArray_CheckExact(object) ? reinterpret_cast<PyArrayObject*>(object) : nullptr;
}

qxClassID integerKind(std::size_t size, bool isSigned) {
    switch (size) {
        case 1:
            return isSigned ? qxClassID::int8 : qxClassID::uint8;
        case 2:
            return isSigned ? qxClassID::int16 : qxClassID::uint16;
        case 4:
            return isSigned ? qxClassID::int32 : qxClassID::uint32;
        default:
            return isSigned ? qxClassID::int64 : qxClassID::uint64;
    }
}

/// Structured data, dates and half-precision numbers have no kind of their own.
qxClassID kindOfNumber(int number) {
    switch (number) {
        case NPY_BOOL:
            return qxClassID::logical;
        case NPY_BYTE:
            return integerKind(sizeof(npy_byte), true);
        case NPY_UBYTE:
            return integerKind(sizeof(npy_byte), false);
        case NPY_SHORT:
            return integerKind(sizeof(npy_short), true);
        case NPY_USHORT:
            return integerKind(sizeof(npy_short), false);
        case NPY_INT:
            return integerKind(sizeof(npy_int), true);
        case NPY_UINT:
            return integerKind(sizeof(npy_int), false);
        case NPY_LONG:
            return integerKind(sizeof(npy_long), true);
        case NPY_ULONG:
            return integerKind(sizeof(npy_long), false);
        case NPY_LONGLONG:
            return integerKind(sizeof(npy_longlong), true);
        case NPY_ULONGLONG:
            return integerKind(sizeof(npy_longlong), false);
        case NPY_FLOAT:
        case NPY_CFLOAT:
            return qxClassID::float32;
        case NPY_DOUBLE:
        case NPY_CDOUBLE:
        case NPY_LONGDOUBLE:
        case NPY_CLONGDOUBLE:
            return qxClassID::float64;
        case NPY_STRING:
        case NPY_UNICODE:
            return qxClassID::character;
        case NPY_OBJECT:
            return qxClassID::cell;
        default:
            return qxClassID::opaque;
    }
}

/// The number of the data type whose scalars an exact type makes; nothing for any other type.
std::optional<int> scalarNumberOf(PyTypeObject* type) {
    struct Scalar {
        PyTypeObject* type;
        int number;
    };
    const Scalar scalars[] = {
        {&PyBoolArrType_Type, NPY_BOOL},
        {&PyByteArrType_Type, NPY_BYTE},
        {&PyUByteArrType_Type, NPY_UBYTE},
        {&PyShortArrType_Type, NPY_SHORT},
        {&PyUShortArrType_Type, NPY_USHORT},
        {&PyIntArrType_Type, NPY_INT},
        {&PyUIntArrType_Type, NPY_UINT},
        {&PyLongArrType_Type, NPY_LONG},
        {&PyULongArrType_Type, NPY_ULONG},
        {&PyLongLongArrType_Type, NPY_LONGLONG},
        {&PyULongLongArrType_Type, NPY_ULONGLONG},
        {&PyHalfArrType_Type, NPY_HALF},
        {&PyFloatArrType_Type, NPY_FLOAT},
        {&PyDoubleArrType_Type, NPY_DOUBLE},
        {&PyLongDoubleArrType_Type, NPY_LONGDOUBLE},
        {&PyCFloatArrType_Type, NPY_CFLOAT},
        {&PyCDoubleArrType_Type, NPY_CDOUBLE},
        {&PyCLongDoubleArrType_Type, NPY_CLONGDOUBLE},
        {&PyStringArrType_Type, NPY_STRING},
        {&PyUnicodeArrType_Type, NPY_UNICODE},
        {&PyVoidArrType_Type, NPY_VOID},
        {&PyDatetimeArrType_Type, NPY_DATETIME},
        {&PyTimedeltaArrType_Type, NPY_TIMEDELTA},
    };
    for (const Scalar& scalar : scalars) {
        if (scalar.type == type) {
            return scalar.number;
        }
    }
    return std::nullopt;
}

/// An element of a user's scalar type would be made by that type.
bool hasOwnElements(PyArrayObject* array) {
    return PyArray_TYPE(array) == NPY_OBJECT || scalarNumberOf(PyArray_DESCR(array)->typeobj).has_value();
}

}  // namespace

bool isNumpyUsable() {
    if (contextdata_python_host_array_api != nullptr) {
        return true;
    }
    void** table = readApi();
    if (table == nullptr) {
        return false;
    }
    contextdata_python_host_array_api = table;
    if (PyArray_GetNDArrayCVersion() != NPY_VERSION) {
        contextdata_python_host_array_api = nullptr;
    }
    return contextdata_python_host_array_api != nullptr;
}

std::optional<qxClassID> numpyKindOf(PyObject* object) {
    if (!isNumpyUsable()) {
        return std::nullopt;
    }
    if (PyArrayObject* array = asExactArray(object)) {
        return kindOfNumber(PyArray_TYPE(array));
    }
    const auto number = scalarNumberOf(Py_TYPE(object));
    return number ? std::optional(kindOfNumber(*number)) : std::nullopt;
}

std::optional<std::vector<std::size_t>> numpyExtentsOf(PyObject* object) {
    PyArrayObject* array = asExactArray(object);
    if (array == nullptr) {
        return std::nullopt;
    }
    std::vector<std::size_t> extents;
    extents.reserve(static_cast<std::size_t>(std::max(PyArray_NDIM(array), 2)));
    for (int index = 0; index < PyArray_NDIM(array); ++index) {
        extents.push_back(static_cast<std::size_t>(PyArray_DIM(array, index)));
    }
    while (extents.size() < 2) {
        extents.push_back(1);
    }
    return extents;
}

Ref numpyElementOf(PyObject* object, std::size_t index) {
    PyArrayObject* array = asExactArray(object);
    if (array == nullptr || PyArray_TYPE(array) != NPY_OBJECT) {
        return {};
    }
    const char* place = PyArray_BYTES(array);
    for (int axis = PyArray_NDIM(array) - 1; axis >= 0; --axis) {
        const auto extent = static_cast<std::size_t>(PyArray_DIM(array, axis));
        if (extent == 0) {
            return {};
        }
        place += static_cast<npy_intp>(index % extent) * PyArray_STRIDE(array, axis);
        index /= extent;
    }
    return index == 0 ? Ref::share(*reinterpret_cast<PyObject* const*>(place)) : Ref();
}

std::size_t numpyLengthOf(PyObject* object) {
    PyArrayObject* array = asExactArray(object);
    return array == nullptr ? 0 : static_cast<std::size_t>(PyArray_SIZE(array));
}

const double* numpyDoublesOf(PyObject* object) {
    if (!isNumpyUsable()) {
        return nullptr;
    }
    if (Py_TYPE(object) == &PyDoubleArrType_Type) {
        return &PyArrayScalar_VAL(object, Double);
    }
    PyArrayObject* array = asExactArray(object);
    const bool readable = array != nullptr && PyArray_TYPE(array) == NPY_DOUBLE && PyArray_ISCARRAY_RO(array);
    return readable ? static_cast<const double*>(PyArray_DATA(array)) : nullptr;
}

Ref numpyItem(PyObject* object, PyObject* index) {
    PyArrayObject* array = asExactArray(object);
    if (array == nullptr || !hasOwnElements(array)) {
        return {};
    }
    Ref item = Ref::steal(PyObject_GetItem(object, index));
    if (!item) {
        PyErr_Clear();
    }
    return item;
}

Ref numpyFieldsOf(PyObject* object) {
    if (!isNumpyUsable()) {
        return {};
    }
    const PyArray_Descr* type = nullptr;
    if (PyArray_Check(object)) {
        type = PyArray_DESCR(reinterpret_cast<PyArrayObject*>(object));
    } else if (PyArray_IsScalar(object, Void)) {
        type = reinterpret_cast<PyVoidScalarObject*>(object)->descr;
    }
    PyObject* names = type == nullptr ? nullptr : type->names;
    return Ref::share(names != nullptr && PyTuple_CheckExact(names) ? names : nullptr);
}

bool isNumpyTrue(PyObject* object) {
    if (!isNumpyUsable()) {
        return false;
    }
    if (Py_TYPE(object) == &PyBoolArrType_Type) {
        return PyArrayScalar_VAL(object, Bool) != 0;
    }
    PyArrayObject* array = asExactArray(object);
    return array != nullptr && PyArray_TYPE(array) == NPY_BOOL && PyArray_SIZE(array) == 1 &&
           *PyArray_BYTES(array) != 0;
}

bool isNumpyOwnType(PyTypeObject* type) {
    return isNumpyUsable() &&
           (type == &PyArray_Type || scalarNumberOf(type).has_value() ||
            (PyType_IsSubtype(type, &PyArrayDescr_Type) && isNamedType(Py_TYPE(type), "numpy._DTypeMeta")));
}

}  // namespace python_host
