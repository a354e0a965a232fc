#include "hosts/python/values/callables.h"

#include <cstring>
#include <string_view>

#include "hosts/python/classes/resolution_order.h"
#include "hosts/python/keys.h"
#include "hosts/python/namespaces/live_modules.h"
#include "hosts/python/python_host.h"

namespace python_host {

namespace {

bool isBuiltInFunctionType(const PyTypeObject* type) noexcept {
    return type == &PyFunction_Type || type == &PyCFunction_Type || type == &PyCMethod_Type || type == &PyMethod_Type ||
           type == &PyMethodDescr_Type || type == &PyWrapperDescr_Type || type == &_PyMethodWrapper_Type ||
           type == &PyClassMethodDescr_Type || type == &PyInstanceMethod_Type;
}

/// Each extension module that is compiled from Python has function types of its own.
bool isCompiledFunctionType(std::string_view name) noexcept {
    return name.ends_with("cython_function_or_method") || name.ends_with("fused_cython_function");
}

bool isLibraryFunctionType(std::string_view name) noexcept {
    return name == "numpy.ufunc" || name == "numpy._ArrayFunctionDispatcher" ||
           name == "functools._lru_cache_wrapper" || name == "functools.partial" || isCompiledFunctionType(name);
}

}  // namespace

bool isKnownFunction(PyObject* object) noexcept {
    const PyTypeObject* type = Py_TYPE(object);
    return isBuiltInFunctionType(type) || isLibraryFunctionType(type->tp_name);
}

bool isCachedProperty(PyObject* object) noexcept {
    PyObject* cached = findInModule(keys().functools, keys().cachedProperty);
    return cached != nullptr && PyType_Check(cached) && derivesFrom(Py_TYPE(object), asType(cached));
}

bool isNamedType(const PyTypeObject* type, const char* name) noexcept { return std::strcmp(type->tp_name, name) == 0; }

}  // namespace python_host
