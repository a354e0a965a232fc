// Reading an attribute without running code.
//
// The language's own order is followed: a data descriptor of the class, the object's dictionary, the class's plain
// value. Whatever would have to be computed on the way is refused, save for getters that are known to compute nothing
// of a user's.
#include "hosts/python/objects/property_access.h"

#include <structmember.h>

#include <cstring>

#include "host/array_library.h"
#include "hosts/python/classes/resolution_order.h"
#include "hosts/python/dictionaries.h"
#include "hosts/python/errors.h"
#include "hosts/python/keys.h"
#include "hosts/python/namespaces/live_modules.h"
#include "hosts/python/objects/frame_columns.h"
#include "hosts/python/objects/instance_attributes.h"
#include "hosts/python/objects/known_getters.h"
#include "hosts/python/python_host.h"
#include "hosts/python/python_text.h"
#include "hosts/python/values/values.h"

namespace python_host {

namespace {

/// Whether reading an attribute follows the ordinary order, as `ordinary` does it. Attributes that are absent may be
/// made up (`__getattr__`): those are never asked for.
bool readsOrdinarily(PyTypeObject* type, getattrofunc ordinary) {
    if (type->tp_getattro == ordinary) {
        return true;
    }
    PyObject* reader = findInOrder(type, keys().getattribute).value;
    return reader != nullptr && Py_TYPE(reader) == &PyWrapperDescr_Type &&
           reinterpret_cast<PyWrapperDescrObject*>(reader)->d_wrapped == reinterpret_cast<void*>(ordinary);
}

/// A slot; null when it is not set, and when the descriptor is of another class.
Ref readSlot(PyObject* object, PyObject* descriptor) {
    auto* member = reinterpret_cast<PyMemberDescrObject*>(descriptor);
    if (!derivesFrom(Py_TYPE(object), PyDescr_TYPE(member))) {
        return {};
    }
    Ref value = Ref::steal(PyMember_GetOne(reinterpret_cast<const char*>(object), member->d_member));
    if (!value) {
        PyErr_Clear();
    }
    return value;
}

/// A descriptor that is asked even before the object's own dictionary.
Ref readDataDescriptor(PyObject* object, const RawAttribute& attribute, PyObject* name, AttributeReach reach) {
    if (Py_TYPE(attribute.value) == &PyMemberDescr_Type) {
        return readSlot(object, attribute.value);
    }
    return reach == AttributeReach::knownGetters ? readKnownGetter(object, attribute, name) : Ref();
}

/// A value of the class as it looks from an instance.
Ref readClassValue(PyObject* object, PyObject* value, AttributeReach reach) {
    PyTypeObject* type = Py_TYPE(value);
    if (type->tp_descr_get == nullptr) {
        return Ref::share(value);
    }
    if (reach == AttributeReach::plainData) {
        return {};
    }
    if (type == &PyFunction_Type) {
        return Ref::steal(orThrow(PyMethod_New(value, object)));
    }
    if (type == &PyMethodDescr_Type && derivesFrom(Py_TYPE(object), PyDescr_TYPE(value))) {
        return Ref::steal(orThrow(type->tp_descr_get(value, object, asObject(Py_TYPE(object)))));
    }
    return {};
}

Ref readFromInstance(PyObject* object, PyObject* name, AttributeReach reach) {
    if (!readsOrdinarily(Py_TYPE(object), PyObject_GenericGetAttr)) {
        return {};
    }
    const RawAttribute attribute = findInOrder(Py_TYPE(object), name);
    if (attribute.value != nullptr && Py_TYPE(attribute.value)->tp_descr_set != nullptr) {
        return readDataDescriptor(object, attribute, name, reach);
    }
    if (PyObject* own = findItem(instanceDictionary(object), name)) {
        return Ref::share(own);
    }
    if (attribute.value != nullptr) {
        return readClassValue(object, attribute.value, reach);
    }
    // A frame shows its columns as attributes that it has not.
    return reach == AttributeReach::knownGetters ? readFrameColumn(object, name) : Ref();
}

/// A value of a class as it looks from the class itself.
Ref readOwnClassValue(PyObject* value, AttributeReach reach) {
    const PyTypeObject* type = Py_TYPE(value);
    if (reach == AttributeReach::plainData) {
        return type->tp_descr_get == nullptr ? Ref::share(value) : Ref();
    }
    const bool isItself = type->tp_descr_get == nullptr || type == &PyFunction_Type || type == &PyMethodDescr_Type ||
                          type == &PyWrapperDescr_Type;
    return isItself ? Ref::share(value) : readKnownWrapper(value);
}

Ref readFromClass(PyTypeObject* cls, PyObject* name, AttributeReach reach) {
    PyTypeObject* metaclass = Py_TYPE(cls);
    if (!readsOrdinarily(metaclass, PyType_Type.tp_getattro)) {
        return {};
    }
    const RawAttribute ofMetaclass = findInOrder(metaclass, name);
    if (ofMetaclass.value != nullptr && Py_TYPE(ofMetaclass.value)->tp_descr_set != nullptr) {
        return {};
    }
    const RawAttribute attribute = findInOrder(cls, name);
    return attribute.value == nullptr ? Ref() : readOwnClassValue(attribute.value, reach);
}

Ref readFromModule(PyObject* module, PyObject* name) {
    if (!readsOrdinarily(Py_TYPE(module), PyModule_Type.tp_getattro)) {
        return {};
    }
    const RawAttribute attribute = findInOrder(Py_TYPE(module), name);
    if (attribute.value != nullptr && Py_TYPE(attribute.value)->tp_descr_set != nullptr) {
        return {};
    }
    return Ref::share(findItem(PyModule_GetDict(module), name));
}

}  // namespace

Ref readAttribute(PyObject* object, PyObject* name, AttributeReach reach) {
    if (PyModule_Check(object)) {
        return readFromModule(object, name);
    }
    return PyType_Check(object) ? readFromClass(asType(object), name, reach) : readFromInstance(object, name, reach);
}

namespace {

/// Namespaces are listed live, so reading a list has nothing to fill, and nobody looks at the list itself.
qxUniqueArray readNamespace(std::string_view namespaceName, std::string_view property) {
    if (property == "Name") {
        return makeTextValue(namespaceName);
    }
    const bool isList = property == "ClassList" || property == "FunctionList" || property == "PackageList";
    return isList ? makeCell(NameList()) : nullptr;
}

/// A live value is one element; the name reaches it as any attribute does. What may not be read is no value.
qxUniqueArray readObject(PyObject* object, const char* name) {
    const Ref key = Ref::steal(makeText(name));
    if (!key) {
        return nullptr;
    }
    const Ref holder = Ref::share(object);
    const Ref value = readAttribute(holder.get(), key.get(), AttributeReach::knownGetters);
    return value ? wrap(value.get()) : nullptr;
}

qxUniqueArray readProperty(const qxArray* value, std::size_t index, const char* name) {
    const PendingErrorGuard pending;
    if (const auto namespaceName = value->namespaceName(index)) {
        return readNamespace(*namespaceName, name);
    }
    if (index != 0 || value->isNamespaces()) {
        throw PythonFailure("the value has no such element");
    }
    return value->object() == nullptr ? nullptr : readObject(value->object(), name);
}

}  // namespace

}  // namespace python_host

qxArray* qxGetPropertyShared(const qxArray* object, std::size_t index, const char* name) {
    return python_host::readProperty(object, index, name).release();
}

// Objects are shared by whoever has a reference; a copy of one would have to ask its class for it.
qxUniqueArray qxGetProperty(const qxArray* object, std::size_t index, const char* name) {
    return python_host::readProperty(object, index, name);
}
