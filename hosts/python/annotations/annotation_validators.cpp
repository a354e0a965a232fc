#include "hosts/python/annotations/annotation_validators.h"

#include <string_view>
#include <utility>

#include "hosts/python/annotations/annotation_constants.h"
#include "hosts/python/annotations/annotation_limits.h"
#include "hosts/python/annotations/annotation_objects.h"
#include "hosts/python/annotations/annotation_text.h"
#include "hosts/python/classes/resolution_order.h"
#include "hosts/python/dictionaries.h"
#include "hosts/python/keys.h"
#include "hosts/python/python_text.h"

namespace python_host {

namespace {

std::string shortNameOf(const PyTypeObject* type) {
    const std::string_view name = type->tp_name;
    return std::string(name.substr(name.rfind('.') + 1));
}

std::string functionName(PyObject* object) {
    if (PyMethod_Check(object)) {
        object = PyMethod_GET_FUNCTION(object);
    }
    if (PyCFunction_Check(object)) {
        return reinterpret_cast<PyCFunctionObject*>(object)->m_ml->ml_name;
    }
    PyObject* name = PyFunction_Check(object) ? reinterpret_cast<PyFunctionObject*>(object)->func_name : nullptr;
    return name != nullptr && PyUnicode_CheckExact(name) ? lossyUtf8Of(name) : std::string();
}

/// The fields of a data class in the order of their declaration; none for any other class.
std::vector<Ref> fieldNamesOf(PyTypeObject* type) {
    PyObject* fields = findInOrder(type, keys().dataclassFields).value;
    std::vector<Ref> names;
    if (fields != nullptr && PyDict_CheckExact(fields)) {
        eachTextItem(fields, [&names](PyObject* key, PyObject* /*field*/) { names.push_back(Ref::share(key)); });
    }
    return names;
}

bool isShown(PyObject* value) { return PyBool_Check(value) || isPlainNumber(value) || PyUnicode_CheckExact(value); }

std::string plainFieldsOf(PyObject* object) {
    std::string result;
    for (const Ref& field : fieldNamesOf(Py_TYPE(object))) {
        const std::string name = lossyUtf8Of(field.get());
        const Ref value = storedAttribute(object, name);
        const auto text = value && isShown(value.get()) ? sourceTextOf(value.get()) : std::nullopt;
        if (text) {
            result += (result.empty() ? "" : ", ") + name + '=' + *text;
        }
    }
    return result;
}

std::string describe(PyObject* object) {
    if (PyType_Check(object)) {
        return shortNameOf(asType(object));
    }
    if (std::string name = functionName(object); !name.empty()) {
        return name;
    }
    const std::string fields = plainFieldsOf(object);
    return shortNameOf(Py_TYPE(object)) + (fields.empty() ? fields : '(' + fields + ')');
}

void append(std::vector<std::string>& validators, const AnnotationTerm& note) {
    if (note.kind == TermKind::note) {
        validators.push_back(bounded(note.text));
        return;
    }
    if (note.kind != TermKind::opaque) {
        return;
    }
    if (!isOfLoadedClass(note.object.get(), "pydantic.fields", "FieldInfo")) {
        validators.push_back(bounded(describe(note.object.get())));
        return;
    }
    for (std::string& limit : limitsOf(note.object.get())) {
        validators.push_back(std::move(limit));
    }
}

}  // namespace

std::vector<std::string> validatorsOf(const AnnotationTerm& annotated) {
    std::vector<std::string> validators;
    for (std::size_t index = 1; index < annotated.arguments.size(); ++index) {
        append(validators, annotated.arguments[index]);
    }
    return validators;
}

}  // namespace python_host
