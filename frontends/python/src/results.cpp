#include "frontends/python/src/results.h"

#include <structmember.h>

#include <algorithm>
#include <array>
#include <utility>

#include "frontends/python/src/errors.h"
#include "frontends/python/src/python_text.h"

namespace contextdata::python {

namespace {

struct CompletionsObject {
    PyObject_HEAD  //
        Py_ssize_t start;
    Py_ssize_t end;
    Py_ssize_t leftOut;
    PyObject* items;
    PyObject* reason;
};

CompletionsObject* asCompletions(PyObject* self) { return reinterpret_cast<CompletionsObject*>(self); }
PyObject* itemsOf(PyObject* self) { return asCompletions(self)->items; }

// The sequence is that of the tuple inside.

void destroy(PyObject* self) {
    PyTypeObject* type = Py_TYPE(self);
    Py_XDECREF(itemsOf(self));
    Py_XDECREF(asCompletions(self)->reason);
    type->tp_free(self);
    Py_DECREF(type);
}

Py_ssize_t length(PyObject* self) { return PyTuple_GET_SIZE(itemsOf(self)); }
PyObject* item(PyObject* self, Py_ssize_t index) { return PySequence_GetItem(itemsOf(self), index); }
PyObject* subscript(PyObject* self, PyObject* key) { return PyObject_GetItem(itemsOf(self), key); }
int contains(PyObject* self, PyObject* value) { return PySequence_Contains(itemsOf(self), value); }
PyObject* iterate(PyObject* self) { return PyObject_GetIter(itemsOf(self)); }

PyObject* represent(PyObject* self) {
    return PyUnicode_FromFormat("<Completions for %zd..%zd: %zd names>", asCompletions(self)->start,
                                asCompletions(self)->end, length(self));
}

PyObject* index(PyObject* self, PyObject* arguments, PyObject* keywords) {
    const auto method = pybind11::reinterpret_steal<pybind11::object>(PyObject_GetAttrString(itemsOf(self), "index"));
    return method ? PyObject_Call(method.ptr(), arguments, keywords) : nullptr;
}

PyObject* count(PyObject* self, PyObject* value) { return PyObject_CallMethod(itemsOf(self), "count", "(O)", value); }

template <class Function>
void* slot(Function* function) {
    return reinterpret_cast<void*>(function);
}

PyMemberDef members[] = {
    {"start", T_PYSSIZET, offsetof(CompletionsObject, start), READONLY,
     "Where the range that a chosen name replaces begins, in code points of the text."},
    {"end", T_PYSSIZET, offsetof(CompletionsObject, end), READONLY, "Where that range ends: the cursor."},
    {"left_out", T_PYSSIZET, offsetof(CompletionsObject, leftOut), READONLY,
     "How many more names there are than the limit allowed."},
    {"reason", T_OBJECT_EX, offsetof(CompletionsObject, reason), READONLY,
     "Why there are no names, for people; '' when there are some, or were before the limit."},
    {nullptr, 0, 0, 0, nullptr}};

PyMethodDef methods[] = {
    {"index", reinterpret_cast<PyCFunction>(reinterpret_cast<void*>(index)), METH_VARARGS | METH_KEYWORDS,
     "The position of a completion; ValueError when it is not there."},
    {"count", count, METH_O, "How many completions equal a value."},
    {nullptr, nullptr, 0, nullptr}};

PyType_Slot completionsSlots[] = {
    {Py_tp_doc, const_cast<char*>("The names that may follow a text: an immutable sequence of Completion.")},
    {Py_tp_dealloc, slot(destroy)},
    {Py_sq_length, slot(length)},
    {Py_sq_item, slot(item)},
    {Py_mp_length, slot(length)},
    {Py_mp_subscript, slot(subscript)},
    {Py_sq_contains, slot(contains)},
    {Py_tp_iter, slot(iterate)},
    {Py_tp_repr, slot(represent)},
    {Py_tp_members, members},
    {Py_tp_methods, methods},
    {0, nullptr}};

PyType_Spec completionsSpec = {"contextdata.Completions", sizeof(CompletionsObject), 0,
                               static_cast<unsigned int>(Py_TPFLAGS_DEFAULT) |
                                   static_cast<unsigned int>(Py_TPFLAGS_SEQUENCE) |
                                   static_cast<unsigned int>(Py_TPFLAGS_IMMUTABLETYPE) |
                                   static_cast<unsigned int>(Py_TPFLAGS_DISALLOW_INSTANTIATION),
                               completionsSlots};

PyStructSequence_Field completionFields[] = {
    {"name", "What may be typed, as it is written: a key with its escapes, an argument with '=', a folder with '/'."},
    {"kind",
     "'method', 'static method', 'property', 'constant', 'enumeration member', 'class', 'function', 'namespace' (a "
     "module too), 'field', 'key', 'argument', 'file', 'folder', 'variable' or 'keyword'."},
    {"definer", "The full name of the class that declares the member; None when that is not known."},
    {nullptr, nullptr}};

PyStructSequence_Desc completionDescription = {
    "contextdata.Completion", "One name that may follow a text, with its kind and its class.", completionFields, 3};

// The types and the words for kinds live as long as the process.
PyTypeObject* completionType = nullptr;
PyTypeObject* completionsType = nullptr;
std::array<PyObject*, completion::kindCount> kindWords = {};

PyObject* orThrow(PyObject* object) {
    if (object == nullptr) {
        throwRaised();
    }
    return object;
}

/// A completion without its fields. `PyStructSequence_New` would look up how many there are each time. The collector is
/// not told: texts are all that it is going to hold, so it can be part of no cycle, and kept listings cost nothing.
PyObject* newCompletion() {
    constexpr Py_ssize_t fields = 3;
    auto* made = PyObject_GC_NewVar(PyStructSequence, completionType, fields);
    if (made == nullptr) {
        throwRaised();
    }
    std::fill_n(made->ob_item, fields, nullptr);
    return reinterpret_cast<PyObject*>(made);
}

}  // namespace

void addResultTypes(pybind11::module_& module) {
    for (std::size_t kind = 0; kind < kindWords.size(); ++kind) {
        kindWords[kind] = orThrow(PyUnicode_InternFromString(textOf(static_cast<completion::Kind>(kind))));
    }
    completionType = PyStructSequence_NewType(&completionDescription);
    module.attr("Completion") = pybind11::handle(orThrow(reinterpret_cast<PyObject*>(completionType)));
    completionsType = reinterpret_cast<PyTypeObject*>(orThrow(PyType_FromSpec(&completionsSpec)));
    module.attr("Completions") = pybind11::handle(reinterpret_cast<PyObject*>(completionsType));
}

pybind11::object completionOf(const completion::Item& item, pybind11::object definer) {
    return completionOf(strOf(item.name), item.kind, std::move(definer));
}

pybind11::object completionOf(pybind11::object name, completion::Kind kind, pybind11::object definer) {
    auto made = pybind11::reinterpret_steal<pybind11::object>(newCompletion());
    PyObject* word = kindWords[static_cast<std::size_t>(kind)];
    Py_INCREF(word);
    PyStructSequence_SET_ITEM(made.ptr(), 0, name.release().ptr());
    PyStructSequence_SET_ITEM(made.ptr(), 1, word);
    PyStructSequence_SET_ITEM(made.ptr(), 2, definer.release().ptr());
    return made;
}

PyObject* nameOf(PyObject* completion) noexcept { return PyStructSequence_GET_ITEM(completion, 0); }

pybind11::object completionsOf(Answer answer) {
    PyObject* made = orThrow(completionsType->tp_alloc(completionsType, 0));
    asCompletions(made)->start = answer.start;
    asCompletions(made)->end = answer.end;
    asCompletions(made)->leftOut = answer.leftOut;
    asCompletions(made)->items = answer.items.release().ptr();
    asCompletions(made)->reason = answer.reason.release().ptr();
    return pybind11::reinterpret_steal<pybind11::object>(made);
}

}  // namespace contextdata::python
