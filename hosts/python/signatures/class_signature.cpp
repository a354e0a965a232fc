#include "hosts/python/signatures/class_signature.h"

#include "hosts/python/classes/resolution_order.h"
#include "hosts/python/dictionaries.h"
#include "hosts/python/keys.h"
#include "hosts/python/members/compiled_members.h"
#include "hosts/python/signatures/text_signature.h"

namespace python_host {

namespace {

/// Whether an entry of a class in C stands for a function that says nothing about its arguments.
bool isMute(PyObject* entry) { return Py_TYPE(entry) == &PyWrapperDescr_Type || PyCFunction_Check(entry); }

PyObject* withoutStatic(PyObject* entry) {
    const bool isStatic = entry != nullptr && Py_TYPE(entry) == &PyStaticMethod_Type;
    return isStatic ? objectMember(&PyStaticMethod_Type, entry, "__func__") : entry;
}

/// Whether a function of Python names no argument but the first, and so only passes on what it is given.
bool namesNothing(PyObject* function) {
    if (!PyFunction_Check(function)) {
        return false;
    }
    const auto* code = reinterpret_cast<PyCodeObject*>(reinterpret_cast<PyFunctionObject*>(function)->func_code);
    return code->co_argcount + code->co_kwonlyargcount <= 1;
}

/// Of the two functions of one class the one that tells more; null when neither tells anything.
PyObject* tellingFunction(PyObject* init, PyObject* make) {
    const bool hasInit = init != nullptr && !isMute(init);
    const bool hasMake = make != nullptr && !isMute(make);
    if (hasInit && hasMake) {
        return namesNothing(init) ? make : init;
    }
    if (hasInit) {
        return init;
    }
    return hasMake ? make : nullptr;
}

Constructor ofOneClass(PyTypeObject* cls) {
    PyObject* init = withoutStatic(findItem(cls->tp_dict, keys().init));
    PyObject* make = withoutStatic(findItem(cls->tp_dict, keys().make));
    if (PyObject* function = tellingFunction(init, make)) {
        return {Ref::share(function), std::nullopt};
    }
    return {{}, cls->tp_doc == nullptr ? std::nullopt : textSignatureOf(cls->tp_doc, cls->tp_name)};
}

bool hasConstructor(PyTypeObject* cls) {
    return findItem(cls->tp_dict, keys().init) != nullptr || findItem(cls->tp_dict, keys().make) != nullptr;
}

/// The call of a metaclass that is not the ordinary one.
Ref metaclassCall(PyTypeObject* type) {
    const RawAttribute call = findInOrder(Py_TYPE(type), keys().call);
    const bool isOrdinary = call.value == nullptr || call.owner == &PyType_Type;
    return isOrdinary ? Ref() : Ref::share(call.value);
}

}  // namespace

Constructor constructorOf(PyTypeObject* type) {
    if (Ref call = metaclassCall(type)) {
        return {std::move(call), std::nullopt};
    }
    const Ref order = resolutionOrder(type);
    for (Py_ssize_t index = 0; order && index < PyTuple_GET_SIZE(order.get()); ++index) {
        PyTypeObject* cls = asType(PyTuple_GET_ITEM(order.get(), index));
        if (cls == &PyBaseObject_Type) {
            return {{}, Signature()};
        }
        Constructor constructor = ofOneClass(cls);
        if (constructor.function || constructor.signature || hasConstructor(cls)) {
            return constructor;
        }
    }
    return {};
}

}  // namespace python_host
