#include "hosts/python/members/member_classification.h"

#include <structmember.h>

#include "hosts/python/classes/resolution_order.h"
#include "hosts/python/dictionaries.h"
#include "hosts/python/keys.h"
#include "hosts/python/members/compiled_members.h"
#include "hosts/python/namespaces/live_modules.h"
#include "hosts/python/python_host.h"

namespace python_host {

namespace {

bool isAbsent(PyObject* accessor) { return accessor == nullptr || accessor == Py_None; }

MemberShape shapeOfProperty(PyObject* value) {
    return isAbsent(objectMember(&PyProperty_Type, value, "fset")) ? MemberShape::readOnlyProperty
                                                                   : MemberShape::property;
}

/// A class method may stand around a property; it is the property then that answers.
MemberShape shapeOfClassMethod(PyObject* value) {
    PyObject* wrapped = objectMember(&PyClassMethod_Type, value, "__func__");
    const bool isProperty = wrapped != nullptr && PyObject_TypeCheck(wrapped, &PyProperty_Type);
    return isProperty ? MemberShape::readOnlyProperty : MemberShape::staticMethod;
}

/// Descriptors written in Python by the example of `property` keep their setter under its name.
bool hasNoSetter(PyObject* descriptor) {
    PyObject** dictionary = _PyObject_GetDictPtr(descriptor);
    return dictionary != nullptr && findItem(*dictionary, keys().fset) == Py_None;
}

MemberShape shapeOfDataDescriptor(PyObject* value) {
    const PyTypeObject* type = Py_TYPE(value);
    if (type == &PyGetSetDescr_Type) {
        const bool assignable = reinterpret_cast<PyGetSetDescrObject*>(value)->d_getset->set != nullptr;
        return assignable ? MemberShape::property : MemberShape::readOnlyProperty;
    }
    if (type == &PyMemberDescr_Type) {
        const bool assignable = (reinterpret_cast<PyMemberDescrObject*>(value)->d_member->flags & READONLY) == 0;
        return assignable ? MemberShape::property : MemberShape::readOnlyProperty;
    }
    return hasNoSetter(value) ? MemberShape::readOnlyProperty : MemberShape::property;
}

/// Method descriptors of the standard library that are not themselves callable.
bool isMethodFactory(PyObject* value) {
    for (PyObject* name : {keys().partialMethod, keys().singleDispatch}) {
        PyObject* type = findInModule("functools", name);
        if (type != nullptr && PyType_Check(type) && PyObject_TypeCheck(value, reinterpret_cast<PyTypeObject*>(type))) {
            return true;
        }
    }
    return false;
}

MemberShape shapeOfBindingDescriptor(PyObject* value) {
    if (Py_TYPE(value)->tp_call != nullptr || isMethodFactory(value)) {
        return MemberShape::method;
    }
    return MemberShape::property;
}

/// Functions that do not bind to an instance when they are read from it.
bool isUnboundFunction(PyObject* value) {
    const PyTypeObject* type = Py_TYPE(value);
    return type == &PyMethod_Type || (type->tp_descr_get == nullptr && isKnownFunction(value));
}

}  // namespace

MemberShape classify(PyObject* value) {
    PyTypeObject* type = Py_TYPE(value);
    if (type == &PyFunction_Type || type == &PyMethodDescr_Type || type == &PyWrapperDescr_Type) {
        return MemberShape::method;
    }
    if (derivesFrom(type, &PyStaticMethod_Type) || type == &PyClassMethodDescr_Type) {
        return MemberShape::staticMethod;
    }
    if (derivesFrom(type, &PyClassMethod_Type)) {
        return shapeOfClassMethod(value);
    }
    if (PyType_Check(value)) {
        return MemberShape::plainValue;
    }
    if (derivesFrom(type, &PyProperty_Type)) {
        return shapeOfProperty(value);
    }
    if (type->tp_descr_set != nullptr) {
        return shapeOfDataDescriptor(value);
    }
    if (isUnboundFunction(value)) {
        return MemberShape::staticMethod;
    }
    return type->tp_descr_get != nullptr ? shapeOfBindingDescriptor(value) : MemberShape::plainValue;
}

bool isImmutableValue(PyObject* value) noexcept {
    return value == Py_None || PyBool_Check(value) || PyLong_CheckExact(value) || PyFloat_CheckExact(value) ||
           PyComplex_CheckExact(value) || PyUnicode_CheckExact(value) || PyBytes_CheckExact(value) ||
           PyTuple_CheckExact(value) || PyFrozenSet_CheckExact(value);
}

}  // namespace python_host
