#include "hosts/python/annotations/annotation_objects.h"

#include "hosts/python/classes/resolution_order.h"
#include "hosts/python/dictionaries.h"
#include "hosts/python/members/compiled_members.h"
#include "hosts/python/namespaces/live_modules.h"
#include "hosts/python/objects/instance_attributes.h"
#include "hosts/python/python_text.h"

namespace python_host {

namespace {

Ref storedUnder(PyObject* object, PyObject* name) {
    if (Ref own = Ref::share(findItem(instanceDictionary(object), name))) {
        return own;
    }
    PyTypeObject* owner = findInOrder(Py_TYPE(object), name).owner;
    return owner == nullptr ? Ref() : readOwnSlot(owner, object, name);
}

}  // namespace

Ref storedAttribute(PyObject* object, std::string_view name) {
    const Ref key = Ref::steal(makeText(name));
    return key ? storedUnder(object, key.get()) : Ref();
}

Ref storedOrSharedAttribute(PyObject* object, std::string_view name) {
    const Ref key = Ref::steal(makeText(name));
    if (!key) {
        return {};
    }
    Ref own = storedUnder(object, key.get());
    return own ? own : Ref::share(findInOrder(Py_TYPE(object), key.get()).value);
}

std::string storedText(PyObject* object, std::string_view name) {
    const Ref text = storedAttribute(object, name);
    return text && PyUnicode_CheckExact(text.get()) ? lossyUtf8Of(text.get()) : std::string();
}

PyTypeObject* loadedClass(std::string_view module, std::string_view name) {
    const Ref key = Ref::steal(makeText(name));
    PyObject* found = key ? findInModule(module, key.get()) : nullptr;
    return found != nullptr && PyType_Check(found) ? asType(found) : nullptr;
}

bool isOfLoadedClass(PyObject* object, std::string_view module, std::string_view name) {
    PyTypeObject* cls = loadedClass(module, name);
    return cls != nullptr && derivesFrom(Py_TYPE(object), cls);
}

Ref itemOfDictionary(PyObject* dictionary, std::string_view key) {
    if (dictionary == nullptr || !PyDict_CheckExact(dictionary)) {
        return {};
    }
    const Ref text = Ref::steal(makeText(key));
    return text ? Ref::share(findItem(dictionary, text.get())) : Ref();
}

}  // namespace python_host
