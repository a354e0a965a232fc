#include "hosts/python/objects/directory_hook.h"

#include "hosts/python/classes/class_registry.h"
#include "hosts/python/classes/resolution_order.h"
#include "hosts/python/errors.h"
#include "hosts/python/keys.h"
#include "hosts/python/objects/instance_attributes.h"
#include "hosts/python/objects/labels.h"
#include "hosts/python/python_host.h"
#include "hosts/python/references.h"
#include "hosts/python/running_code.h"
#include "hosts/python/streams/output_capture.h"

namespace python_host {

namespace {

/// The hooks that are known to add nothing to what a class and the attributes of its objects show.
bool addsNothing(PyTypeObject* hookOwner) {
    return hookOwner == &PyBaseObject_Type || hookOwner == &PyModule_Type ||
           ClassRegistry::instance().objectOf(hookOwner).getID().view() == "enum.Enum";
}

/// Swallows the Python error that is set, save for the interrupt.
void containError() {
    try {
        throwPythonError();
    } catch (const foundation::core::except::InterruptException&) {
        throw;
    } catch (const PythonFailure&) {
    }
}

/// The hook as the language would bind it; empty when binding fails.
Ref bindHook(PyObject* hook, PyObject* object) {
    const descrgetfunc bind = Py_TYPE(hook)->tp_descr_get;
    if (bind == nullptr) {
        return Ref::share(hook);
    }
    return Ref::steal(runCode([&] { return bind(hook, object, asObject(Py_TYPE(object))); }));
}

Ref callHook(PyObject* hook, PyObject* object) {
    const OutputCapture capture;
    const Ref bound = bindHook(hook, object);
    const Ref answer = bound ? Ref::steal(runCode([&] { return PyObject_CallNoArgs(bound.get()); })) : Ref();
    Ref names = answer ? Ref::steal(runCode([&] { return PySequence_List(answer.get()); })) : Ref();
    if (!names) {
        containError();
    }
    return names;
}

void appendNames(PyObject* list, const MemberTable& members, UniqueNameList& names) {
    for (Py_ssize_t index = 0; index < PyList_GET_SIZE(list); ++index) {
        appendIfNew(PyList_GET_ITEM(list, index), members, names);
    }
}

}  // namespace

bool hasDirectoryHook(PyTypeObject* type) {
    const RawAttribute hook = findInOrder(type, keys().dir);
    return hook.value != nullptr && !addsNothing(hook.owner);
}

void appendDirectory(PyObject* object, const MemberTable& members, UniqueNameList& names) {
    const RawAttribute hook = findInOrder(Py_TYPE(object), keys().dir);
    if (hook.value == nullptr || addsNothing(hook.owner) || PyType_Check(object)) {
        return;
    }
    // The labels are all that this hook would add, and it takes long to say so.
    if (isLabelledDirectory(hook.owner) && appendLabels(object, members, names)) {
        return;
    }
    const Ref keepHook = Ref::share(hook.value);
    const Ref answer = callHook(keepHook.get(), object);
    if (answer) {
        appendNames(answer.get(), members, names);
    }
}

}  // namespace python_host
