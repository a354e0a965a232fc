#include "hosts/python/classes/structure_key.h"

#include <algorithm>

#include "hosts/python/classes/resolution_order.h"
#include "hosts/python/dictionaries.h"
#include "hosts/python/keys.h"

namespace python_host {

namespace {

/// The interpreter tells a type of changes in its bases only; an order made by a metaclass may hold other types.
bool hasOrdinaryOrder(PyTypeObject* type) noexcept {
    return findInOrder(Py_TYPE(type), keys().mro).owner == &PyType_Type;
}

/// The interpreter's own look-up, which assigns the tag, compares keys; foreign ones would be asked.
bool isSafeToLookUp(PyTypeObject* type) noexcept {
    PyObject* order = type->tp_mro;
    if (order == nullptr) {
        return false;
    }
    for (Py_ssize_t index = 0; index < PyTuple_GET_SIZE(order); ++index) {
        PyObject* dictionary = asType(PyTuple_GET_ITEM(order, index))->tp_dict;
        if (dictionary == nullptr || !hasOnlyTextKeys(dictionary)) {
            return false;
        }
    }
    return true;
}

}  // namespace

void StructureKey::takeTag(PyTypeObject* type) noexcept {
    tag_ = 0;
    if (!hasOrdinaryOrder(type) || !isSafeToLookUp(type)) {
        return;
    }
    if (!hasTag(type)) {
        _PyType_Lookup(type, keys().module);
    }
    tag_ = hasTag(type) ? type->tp_version_tag : 0;
}

void StructureKey::cover(PyObject* table) {
    if (table != nullptr && PyDict_Check(table)) {
        tables_.push_back({table, versionOf(table)});
    }
}

bool StructureKey::tablesUnchanged() const noexcept {
    return std::all_of(tables_.begin(), tables_.end(),
                       [](const Table& table) { return versionOf(table.dictionary) == table.version; });
}

}  // namespace python_host
