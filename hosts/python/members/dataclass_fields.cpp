#include "hosts/python/members/dataclass_fields.h"

#include "hosts/python/classes/resolution_order.h"
#include "hosts/python/dictionaries.h"
#include "hosts/python/keys.h"
#include "hosts/python/members/compiled_members.h"
#include "hosts/python/namespaces/live_modules.h"

namespace python_host {

namespace {

PyObject* fieldsOf(PyTypeObject* type) noexcept {
    PyObject* fields = findItem(type->tp_dict, keys().dataclassFields);
    return fields != nullptr && PyDict_CheckExact(fields) ? fields : nullptr;
}

/// A slot of an object that is of the library's own type of that name, or of one derived from it.
Ref readPart(PyObject* object, PyObject* typeName, PyObject* part) noexcept {
    PyObject* type = object == nullptr ? nullptr : findInModule("dataclasses", typeName);
    return type != nullptr && PyType_Check(type) ? readOwnSlot(asType(type), object, part) : Ref();
}

int takeFirst(PyObject* referent, void* place) {
    *static_cast<PyObject**>(place) = referent;
    return 1;
}

/// What a read-only view shows. Borrowed from the view, whose only reference it is.
PyObject* mappingBehind(PyObject* view) noexcept {
    PyObject* mapping = nullptr;
    Py_TYPE(view)->tp_traverse(view, takeFirst, static_cast<void*>(&mapping));
    return mapping;
}

}  // namespace

bool isDataclass(PyTypeObject* type) noexcept { return fieldsOf(type) != nullptr; }

bool isFrozenField(PyTypeObject* type, PyObject* name) noexcept {
    const Ref field = Ref::share(findItem(fieldsOf(type), name));
    const Ref parameters = Ref::share(findItem(type->tp_dict, keys().dataclassParams));
    if (!field || readPart(parameters.get(), keys().paramsType, keys().frozen).get() != Py_True) {
        return false;
    }
    const Ref kind = readPart(field.get(), keys().fieldType, keys().fieldKind);
    return kind && kind.get() == findInModule("dataclasses", keys().ordinaryField);
}

Ref fieldMetadata(PyTypeObject* type, PyObject* name) noexcept {
    const Ref field = Ref::share(findItem(fieldsOf(type), name));
    const Ref metadata = readPart(field.get(), keys().fieldType, keys().metadata);
    if (!metadata) {
        return {};
    }
    const bool isView = Py_TYPE(metadata.get()) == &PyDictProxy_Type;
    PyObject* mapping = isView ? mappingBehind(metadata.get()) : metadata.get();
    return Ref::share(mapping != nullptr && PyDict_CheckExact(mapping) ? mapping : nullptr);
}

}  // namespace python_host
