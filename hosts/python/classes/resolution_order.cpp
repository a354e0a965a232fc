#include "hosts/python/classes/resolution_order.h"

#include "hosts/python/dictionaries.h"

namespace python_host {

RawAttribute findInOrder(PyTypeObject* type, PyObject* name) noexcept {
    PyObject* order = type->tp_mro;
    if (order == nullptr) {
        return {};
    }
    for (Py_ssize_t index = 0; index < PyTuple_GET_SIZE(order); ++index) {
        PyTypeObject* candidate = asType(PyTuple_GET_ITEM(order, index));
        if (PyObject* value = findItem(candidate->tp_dict, name)) {
            return {value, candidate};
        }
    }
    return {};
}

Ref resolutionOrder(PyTypeObject* type) { return Ref::share(type->tp_mro); }

}  // namespace python_host
