#include "hosts/python/members/compiled_members.h"

#include <structmember.h>

#include "hosts/python/dictionaries.h"

namespace python_host {

PyObject* objectMember(PyTypeObject* type, PyObject* object, std::string_view name) noexcept {
    for (const PyMemberDef* member = type->tp_members; member != nullptr && member->name != nullptr; ++member) {
        if (name == member->name && (member->type == T_OBJECT || member->type == T_OBJECT_EX)) {
            return *reinterpret_cast<PyObject**>(reinterpret_cast<char*>(object) + member->offset);
        }
    }
    return nullptr;
}

Ref readOwnSlot(PyTypeObject* type, PyObject* object, PyObject* name) noexcept {
    PyObject* descriptor = findItem(type->tp_dict, name);
    if (descriptor == nullptr || Py_TYPE(descriptor) != &PyMemberDescr_Type) {
        return {};
    }
    auto* member = reinterpret_cast<PyMemberDescrObject*>(descriptor);
    // Another type's slot may have been put into the dictionary, and lies elsewhere.
    if (PyDescr_TYPE(member) != type || PyType_IsSubtype(Py_TYPE(object), type) == 0) {
        return {};
    }
    Ref value = Ref::steal(PyMember_GetOne(reinterpret_cast<const char*>(object), member->d_member));
    if (!value) {
        PyErr_Clear();
    }
    return value;
}

}  // namespace python_host
