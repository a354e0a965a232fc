#include "hosts/python/annotations/declared_types_traits.h"

#include <array>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "hosts/python/annotations/annotation_constants.h"
#include "hosts/python/annotations/annotation_enumerations.h"
#include "hosts/python/annotations/annotation_objects.h"
#include "hosts/python/folders/live_paths.h"
#include "hosts/python/python_text.h"

namespace python_host {

namespace {

using Result = std::optional<AnnotationTerm>;

constexpr std::string_view module = "traitlets.traitlets";

struct PlainTrait {
    std::string_view name;
    PyTypeObject* type;
};

const std::array<PlainTrait, 8>& plainTraits() {
    static const std::array<PlainTrait, 8> traits = {{{"Int", &PyLong_Type},
                                                      {"Float", &PyFloat_Type},
                                                      {"Complex", &PyComplex_Type},
                                                      {"Bool", &PyBool_Type},
                                                      {"Unicode", &PyUnicode_Type},
                                                      {"ObjectName", &PyUnicode_Type},
                                                      {"DottedObjectName", &PyUnicode_Type},
                                                      {"Bytes", &PyBytes_Type}}};
    return traits;
}

bool isOfTraitClass(PyObject* trait, std::string_view name) { return isOfLoadedClass(trait, module, name); }

Result ofClassOrPath(PyObject* cls) {
    if (cls != nullptr && PyType_Check(cls)) {
        return AnnotationTerm::ofClass(asType(cls));
    }
    if (cls == nullptr || !PyUnicode_CheckExact(cls)) {
        return std::nullopt;
    }
    std::string path = lossyUtf8Of(cls);
    PyObject* found = findPath(path);
    return found != nullptr && PyType_Check(found) ? AnnotationTerm::ofClass(asType(found))
                                                   : AnnotationTerm::ofText(TermKind::name, std::move(path));
}

Ref elementAt(PyObject* row, Py_ssize_t index) {
    return Ref::share(PyTuple_CheckExact(row) ? PyTuple_GET_ITEM(row, index) : PyList_GET_ITEM(row, index));
}

bool isRow(PyObject* object) { return object != nullptr && (PyTuple_CheckExact(object) || PyList_CheckExact(object)); }

bool isAdmissible(PyObject* value) {
    return value != Py_Ellipsis && (isPlainConstant(value) || isEnumerationMember(value));
}

/// The values that the trait was given; nothing when there is one among them that cannot be shown.
Result ofValues(PyObject* trait) {
    const Ref values = storedAttribute(trait, "values");
    if (!isRow(values.get())) {
        return std::nullopt;
    }
    std::vector<AnnotationTerm> constants;
    for (Py_ssize_t index = 0; index < Py_SIZE(values.get()); ++index) {
        const Ref value = elementAt(values.get(), index);
        if (!isAdmissible(value.get())) {
            return std::nullopt;
        }
        constants.push_back(AnnotationTerm::ofObject(TermKind::constant, value.get()));
    }
    if (storedAttribute(trait, "allow_none").get() == Py_True) {
        constants.push_back(AnnotationTerm::ofObject(TermKind::constant, Py_None));
    }
    return constants.empty() ? std::nullopt
                             : Result(AnnotationTerm::ofArguments(TermKind::literal, std::move(constants)));
}

/// A trait for classes themselves holds a class, not an object of it.
Result ofClassTrait(PyObject* trait) {
    Result cls = ofClassOrPath(storedOrSharedAttribute(trait, "klass").get());
    if (!cls) {
        return std::nullopt;
    }
    AnnotationTerm result{TermKind::generic, Ref::share(&PyType_Type), {}, {}};
    result.arguments.push_back(*std::move(cls));
    return result;
}

Result ofKnownKind(PyObject* trait) {
    for (const PlainTrait& plain : plainTraits()) {
        if (isOfTraitClass(trait, plain.name)) {
            return AnnotationTerm::ofClass(plain.type);
        }
    }
    if (isOfTraitClass(trait, "Enum")) {
        return ofValues(trait);
    }
    if (isOfTraitClass(trait, "UseEnum")) {
        return ofClassOrPath(storedOrSharedAttribute(trait, "enum_class").get());
    }
    if (isOfTraitClass(trait, "Instance")) {
        return ofClassOrPath(storedOrSharedAttribute(trait, "klass").get());
    }
    if (isOfTraitClass(trait, "Type")) {
        return ofClassTrait(trait);
    }
    return isOfTraitClass(trait, "Any") ? Result(AnnotationTerm::ofText(TermKind::name, "Any")) : std::nullopt;
}

}  // namespace

std::optional<AnnotationTerm> typeOfTrait(PyObject* trait) {
    Result known = ofKnownKind(trait);
    return known ? known : Result(AnnotationTerm::ofClass(Py_TYPE(trait)));
}

}  // namespace python_host
