// Classes as values, through which their static members are found.
#include <Python.h>

#include "host/array_library.h"
#include "hosts/python/classes/class_registry.h"
#include "hosts/python/classes/resolution_order.h"
#include "hosts/python/errors.h"
#include "hosts/python/interning.h"
#include "hosts/python/members/compiled_members.h"
#include "hosts/python/python_host.h"
#include "hosts/python/python_text.h"
#include "hosts/python/values/java_classes.h"
#include "hosts/python/values/values.h"

namespace python_host {

namespace {

Ref findClass(const char* name) {
    const ClassObject* cls = ClassRegistry::instance().find(internName(name));
    PyTypeObject* type = cls == nullptr ? nullptr : cls->type();
    return type != nullptr ? Ref::share(type) : findJavaClass(name);
}

PyTypeObject* classOf(PyObject* object) { return PyType_Check(object) ? asType(object) : Py_TYPE(object); }

/// What a class has without an object: functions that need none, and plain values. Empty for what needs an object.
Ref staticMember(PyObject* entry) {
    PyTypeObject* type = Py_TYPE(entry);
    if (type == &PyStaticMethod_Type || type == &PyClassMethod_Type) {
        return Ref::share(objectMember(type, entry, "__func__"));
    }
    return type->tp_descr_get == nullptr || type == &PyClassMethodDescr_Type ? Ref::share(entry) : Ref();
}

/// The bridge keeps all methods of one name together, with and without an object.
Ref findMember(PyTypeObject* cls, PyObject* name) {
    PyObject* entry = findInOrder(cls, name).value;
    if (entry == nullptr) {
        return {};
    }
    return isJavaClass(cls) && isOfJava(entry) ? Ref::share(entry) : staticMember(entry);
}

}  // namespace

}  // namespace python_host

qxUniqueArray qxCreateClassArray(const char* className) {
    const python_host::PendingErrorGuard pending;
    const python_host::Ref type = python_host::findClass(className);
    return type ? python_host::wrap(type.get()) : nullptr;
}

qxUniqueArray qxFindClassMember(const qxArray* value, const char* memberName) {
    const python_host::PendingErrorGuard pending;
    const python_host::Ref name = python_host::Ref::steal(python_host::makeText(memberName));
    if (value->object() == nullptr || !name) {
        return nullptr;
    }
    const python_host::Ref cls = python_host::Ref::share(python_host::classOf(value->object()));
    const python_host::Ref member = python_host::findMember(python_host::asType(cls.get()), name.get());
    return member ? python_host::wrap(member.get()) : nullptr;
}
