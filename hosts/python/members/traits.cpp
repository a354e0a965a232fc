#include "hosts/python/members/traits.h"

#include "hosts/python/classes/resolution_order.h"
#include "hosts/python/dictionaries.h"
#include "hosts/python/keys.h"
#include "hosts/python/namespaces/live_modules.h"
#include "hosts/python/objects/instance_attributes.h"
#include "hosts/python/python_text.h"

namespace python_host {

namespace {

/// Looked up when asked: as long as nobody has loaded the library there are no traits.
bool derivesFromLibraryType(PyTypeObject* type, PyObject* name) noexcept {
    PyObject* base = findInModule(keys().traitsModule, name);
    return base != nullptr && PyType_Check(base) && derivesFrom(type, asType(base));
}

}  // namespace

bool isTrait(PyObject* value) noexcept { return derivesFromLibraryType(Py_TYPE(value), keys().traitType); }

bool isLibraryTrait(PyObject* trait) noexcept {
    const Ref name = Ref::steal(makeText(Py_TYPE(trait)->tp_name));
    return name && findInModule(keys().traitsModule, name.get()) == asObject(Py_TYPE(trait));
}

bool hasTraits(PyTypeObject* type) noexcept { return derivesFromLibraryType(type, keys().hasTraits); }

PyObject* traitMetadata(PyObject* trait) noexcept {
    PyObject* metadata = findItem(instanceDictionary(trait), keys().metadata);
    return metadata != nullptr && PyDict_CheckExact(metadata) ? metadata : nullptr;
}

}  // namespace python_host
