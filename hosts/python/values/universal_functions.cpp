#include "hosts/python/values/universal_functions.h"

#define NPY_NO_DEPRECATED_API NPY_1_22_API_VERSION
#define PY_ARRAY_UNIQUE_SYMBOL contextdata_python_host_array_api
#define NO_IMPORT_ARRAY
#define NO_IMPORT_UFUNC
#include <numpy/arrayobject.h>
#include <numpy/ufuncobject.h>

#include "hosts/python/values/callables.h"
#include "hosts/python/values/numpy_values.h"

namespace python_host {

std::optional<UniversalFunction> universalFunctionOf(PyObject* object) noexcept {
    const PyTypeObject* type = Py_TYPE(object);
    const bool isCompiledIn = (type->tp_flags & Py_TPFLAGS_HEAPTYPE) == 0;
    if (!isCompiledIn || !isNamedType(type, "numpy.ufunc") || !isNumpyUsable()) {
        return std::nullopt;
    }
    const auto* function = reinterpret_cast<const PyUFuncObject*>(object);
    return UniversalFunction{function->nin, function->core_enabled != 0};
}

}  // namespace python_host
