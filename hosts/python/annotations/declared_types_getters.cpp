#include "hosts/python/annotations/declared_types_getters.h"

#include "hosts/python/annotations/annotation_objects.h"
#include "hosts/python/classes/resolution_order.h"
#include "hosts/python/members/compiled_members.h"
#include "hosts/python/python_text.h"

namespace python_host {

namespace {

Ref getterOf(PyObject* value) {
    if (derivesFrom(Py_TYPE(value), &PyProperty_Type)) {
        return Ref::share(objectMember(&PyProperty_Type, value, "fget"));
    }
    if (isOfLoadedClass(value, "functools", "cached_property")) {
        return storedAttribute(value, "func");
    }
    // Enumerations have properties of a kind of their own.
    return isOfLoadedClass(value, "types", "DynamicClassAttribute") ? storedAttribute(value, "fget") : Ref();
}

bool isResultKey(PyObject* key) { return PyUnicode_CheckExact(key) && lossyUtf8Of(key) == "return"; }

/// Until somebody asks for them, a function keeps its annotations as a row of names and annotations in turn.
Ref resultInRow(PyObject* row) {
    for (Py_ssize_t index = 0; index + 1 < PyTuple_GET_SIZE(row); index += 2) {
        if (isResultKey(PyTuple_GET_ITEM(row, index))) {
            return Ref::share(PyTuple_GET_ITEM(row, index + 1));
        }
    }
    return {};
}

Ref resultAmong(PyObject* annotations) {
    const bool isRow = annotations != nullptr && PyTuple_CheckExact(annotations);
    return isRow ? resultInRow(annotations) : itemOfDictionary(annotations, "return");
}

}  // namespace

GetterResult resultOfGetter(PyObject* value) {
    const Ref getter = getterOf(value);
    if (!getter || !PyFunction_Check(getter.get())) {
        return {};
    }
    const auto* function = reinterpret_cast<PyFunctionObject*>(getter.get());
    return {resultAmong(function->func_annotations), Ref::share(function->func_globals)};
}

}  // namespace python_host
