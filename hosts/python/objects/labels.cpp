#include "hosts/python/objects/labels.h"

#include <algorithm>
#include <cstddef>

#include "hosts/python/classes/class_registry.h"
#include "hosts/python/classes/resolution_order.h"
#include "hosts/python/dictionaries.h"
#include "hosts/python/keys.h"
#include "hosts/python/objects/instance_attributes.h"
#include "hosts/python/python_text.h"
#include "hosts/python/values/callables.h"
#include "hosts/python/values/numpy_values.h"

namespace python_host {

namespace {

/// A table may have very many labels; beyond these, nobody reads a list.
constexpr std::size_t labelLimit = 10'000;

bool isNamed(PyTypeObject* type, const char* fullName) {
    return ClassRegistry::instance().objectOf(type).getID().view() == fullName;
}

/// The library's own kinds of axes: their labels are data and never attributes.
bool isAxis(PyTypeObject* type) {
    return ClassRegistry::instance().objectOf(type).getID().view().starts_with("pandas.core.indexes.");
}

bool isCompiledManager(const PyTypeObject* type) {
    const bool isCompiledIn = (type->tp_flags & Py_TPFLAGS_HEAPTYPE) == 0;
    return isCompiledIn && isNamedType(type, "pandas._libs.internals.BlockManager");
}

/// The axes stand in the manager's own dictionary or, for the compiled one, behind a getter in C.
Ref managerAxes(PyObject* manager) {
    const RawAttribute axes = findInOrder(Py_TYPE(manager), keys().axes);
    if (axes.value != nullptr && Py_TYPE(axes.value) == &PyGetSetDescr_Type && isCompiledManager(axes.owner)) {
        Ref value = Ref::steal(Py_TYPE(axes.value)->tp_descr_get(axes.value, manager, asObject(Py_TYPE(manager))));
        if (!value) {
            PyErr_Clear();
        }
        return value;
    }
    return Ref::share(findItem(instanceDictionary(manager), keys().axes));
}

/// The labels of an axis as an array of objects; null when they are anything else. An axis of several levels offers
/// those of the first.
PyObject* labelArray(PyObject* axis) {
    PyObject* levels = storedAttribute(axis, "_levels");
    if (levels != nullptr && PyList_Check(levels) && PyList_GET_SIZE(levels) > 0) {
        return labelArray(PyList_GET_ITEM(levels, 0));
    }
    return storedAttribute(axis, "_data");
}

}  // namespace

bool isLabelledDirectory(PyTypeObject* hookOwner) { return isNamed(hookOwner, "pandas.core.accessor.DirNamesMixin"); }

Ref axesOf(PyObject* object) {
    PyObject* manager = findItem(instanceDictionary(object), keys().manager);
    if (manager == nullptr) {
        return {};
    }
    const Ref keep = Ref::share(manager);
    Ref axes = managerAxes(keep.get());
    const bool usable = axes && PyList_CheckExact(axes.get()) && PyList_GET_SIZE(axes.get()) > 0;
    return usable ? axes : Ref();
}

bool eachLabel(PyObject* object, const std::function<void(PyObject*)>& visit) {
    const Ref axes = axesOf(object);
    if (!axes) {
        return false;
    }
    const Ref labels = Ref::share(labelArray(PyList_GET_ITEM(axes.get(), 0)));
    // Without an array the axis is a row of numbers, which has no labels.
    const std::size_t count = labels ? std::min(labelLimit, numpyLengthOf(labels.get())) : 0;
    for (std::size_t index = 0; index < count; ++index) {
        if (const Ref label = numpyElementOf(labels.get(), index)) {
            visit(label.get());
        }
    }
    return true;
}

bool appendLabels(PyObject* object, const MemberTable& members, UniqueNameList& names) {
    return isAxis(Py_TYPE(object)) || eachLabel(object, [&](PyObject* label) { appendIfNew(label, members, names); });
}

bool isLabelled(PyTypeObject* type) {
    const Ref order = resolutionOrder(type);
    for (Py_ssize_t place = 0; order && place < PyTuple_GET_SIZE(order.get()); ++place) {
        PyObject* base = PyTuple_GET_ITEM(order.get(), place);
        if (PyType_Check(base) && isNamed(asType(base), "pandas.core.generic.NDFrame")) {
            return true;
        }
    }
    return false;
}

}  // namespace python_host
