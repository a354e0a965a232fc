#include "hosts/python/annotations/annotation_reader.h"

#include <algorithm>
#include <utility>

#include "hosts/python/annotations/annotation_constants.h"
#include "hosts/python/annotations/annotation_forms.h"
#include "hosts/python/annotations/annotation_notes.h"
#include "hosts/python/annotations/annotation_objects.h"
#include "hosts/python/annotations/annotation_parser.h"
#include "hosts/python/classes/resolution_order.h"
#include "hosts/python/members/compiled_members.h"
#include "hosts/python/python_text.h"
#include "hosts/python/values/callables.h"

namespace python_host {

namespace {

using Terms = std::vector<AnnotationTerm>;

constexpr std::size_t deepest = 40;

bool isCompiledIn(const PyTypeObject* type) { return (type->tp_flags & Py_TPFLAGS_HEAPTYPE) == 0; }

/// The type of `int | str`, whose symbol the interpreter does not publish.
bool isBuiltInUnion(PyObject* object) {
    return isCompiledIn(Py_TYPE(object)) && isNamedType(Py_TYPE(object), "types.UnionType");
}

bool isOfTyping(PyObject* object, std::string_view name) { return isOfLoadedClass(object, "typing", name); }

bool isVariable(PyObject* object) {
    return isOfTyping(object, "TypeVar") || isOfTyping(object, "ParamSpec") || isOfTyping(object, "TypeVarTuple");
}

/// Whether a term stands for all parameters of a callable at once.
bool standsForParameters(const AnnotationTerm& term) {
    return (term.kind == TermKind::constant && term.object.get() == Py_Ellipsis) ||
           (term.kind == TermKind::variable && isOfTyping(term.object.get(), "ParamSpec")) ||
           (term.kind == TermKind::generic && term.text == "Concatenate");
}

/// Aliases of callables keep the parameters and the result in one row.
Terms withParametersInBrackets(Terms row) {
    if (row.empty() || (row.size() == 2 && standsForParameters(row.front()))) {
        return row;
    }
    AnnotationTerm result = std::move(row.back());
    row.pop_back();
    Terms grouped;
    grouped.push_back(AnnotationTerm::ofArguments(TermKind::list, std::move(row)));
    grouped.push_back(std::move(result));
    return grouped;
}

bool isLiteralValue(PyObject* object) {
    return object != Py_Ellipsis && !PyFloat_CheckExact(object) && sourceTextOf(object).has_value();
}

std::optional<Terms> readLiteralValues(PyObject* values) {
    Terms constants;
    for (Py_ssize_t index = 0; index < PyTuple_GET_SIZE(values); ++index) {
        PyObject* value = PyTuple_GET_ITEM(values, index);
        if (!isLiteralValue(value)) {
            return std::nullopt;
        }
        constants.push_back(AnnotationTerm::ofObject(TermKind::constant, value));
    }
    return constants;
}

Ref elementAt(PyObject* sequence, Py_ssize_t index) {
    return Ref::share(PyTuple_CheckExact(sequence) ? PyTuple_GET_ITEM(sequence, index)
                                                   : PyList_GET_ITEM(sequence, index));
}

}  // namespace

AnnotationReader::Level::Level(AnnotationReader& reader, PyObject* object)
    : reader_(reader),
      entered_(
          reader.open_.size() < deepest && reader.budget_.take() &&
          (object == nullptr || std::find(reader.open_.begin(), reader.open_.end(), object) == reader.open_.end())) {
    reader_.open_.push_back(object);
}

std::optional<AnnotationTerm> AnnotationReader::read(PyObject* object) {
    const Ref keep = Ref::share(object);
    if (object == Py_None) {
        return AnnotationTerm::ofNone();
    }
    if (PyType_Check(object)) {
        return readClass(asType(object));
    }
    const Level level(*this, object);
    return level.isEntered() ? readNested(object) : std::nullopt;
}

std::optional<AnnotationTerm> AnnotationReader::readText(std::string_view text) { return parseAnnotation(text, *this); }

std::optional<AnnotationTerm> AnnotationReader::readClass(PyTypeObject* type) const {
    if (type == loadedClass("typing", "Any")) {
        return AnnotationTerm::ofText(TermKind::name, "Any");
    }
    if (type == loadedClass("typing", "Annotated")) {
        return AnnotationTerm::ofText(TermKind::form, "Annotated");
    }
    if (type == loadedClass("dataclasses", "InitVar")) {
        return AnnotationTerm::ofText(TermKind::form, "InitVar");
    }
    return AnnotationTerm::ofClass(type);
}

std::optional<AnnotationTerm> AnnotationReader::readNested(PyObject* object) {
    if (PyUnicode_CheckExact(object)) {
        return readText(lossyUtf8Of(object));
    }
    if (isPlainConstant(object)) {
        return AnnotationTerm::ofObject(TermKind::constant, object);
    }
    if (PyTuple_CheckExact(object) || PyList_CheckExact(object)) {
        return readSequence(object);
    }
    Result alias = readBuiltInAlias(object);
    return alias ? alias : readTypingObject(object);
}

std::optional<AnnotationTerm> AnnotationReader::readBuiltInAlias(PyObject* object) {
    if (derivesFrom(Py_TYPE(object), &Py_GenericAliasType)) {
        const auto member = [object](const char* name) {
            return Ref::share(objectMember(&Py_GenericAliasType, object, name));
        };
        return readGeneric(object, member("__origin__"), member("__args__"));
    }
    if (!isBuiltInUnion(object)) {
        return std::nullopt;
    }
    const Ref members = Ref::share(objectMember(Py_TYPE(object), object, "__args__"));
    auto arguments = readArguments(members.get());
    const AnnotationTerm form = AnnotationTerm::ofText(TermKind::form, "Union");
    return arguments ? applyArguments(form, *std::move(arguments), budget_) : std::nullopt;
}

std::optional<AnnotationTerm> AnnotationReader::readTypingObject(PyObject* object) {
    if (isOfTyping(object, "_AnnotatedAlias")) {
        return readAnnotated(object);
    }
    if (isOfTyping(object, "_GenericAlias")) {
        return readGeneric(object, storedAttribute(object, "__origin__"), storedAttribute(object, "__args__"));
    }
    if (isOfTyping(object, "_SpecialGenericAlias")) {
        const Ref origin = storedAttribute(object, "__origin__");
        return origin && PyType_Check(origin.get()) ? readClass(asType(origin.get())) : std::nullopt;
    }
    if (isOfTyping(object, "_SpecialForm")) {
        return readForm(object);
    }
    if (isOfTyping(object, "ForwardRef")) {
        return readText(storedText(object, "__forward_arg__"));
    }
    if (isOfLoadedClass(object, "dataclasses", "InitVar")) {
        const Ref inner = storedAttribute(object, "type");
        return inner ? read(inner.get()) : std::nullopt;
    }
    return readVariable(object);
}

std::optional<AnnotationTerm> AnnotationReader::readGeneric(PyObject* alias, const Ref& origin, const Ref& arguments) {
    const Result head = origin ? read(origin.get()) : std::nullopt;
    if (!head || !arguments || !PyTuple_CheckExact(arguments.get())) {
        return std::nullopt;
    }
    if (!budget_.take(static_cast<std::size_t>(PyTuple_GET_SIZE(arguments.get())))) {
        return std::nullopt;
    }
    auto terms = head->isForm("Literal") ? readLiteralValues(arguments.get()) : readArguments(arguments.get());
    if (!terms) {
        return std::nullopt;
    }
    if (isNamedType(Py_TYPE(alias), "_CallableGenericAlias")) {
        terms = withParametersInBrackets(*std::move(terms));
    }
    return applyArguments(*head, *std::move(terms), budget_);
}

std::optional<AnnotationTerm> AnnotationReader::readAnnotated(PyObject* alias) {
    const Ref origin = storedAttribute(alias, "__origin__");
    const Ref metadata = storedAttribute(alias, "__metadata__");
    Result type = origin ? read(origin.get()) : std::nullopt;
    if (!type || !metadata || !PyTuple_CheckExact(metadata.get())) {
        return std::nullopt;
    }
    Terms arguments;
    arguments.push_back(*std::move(type));
    for (Py_ssize_t index = 0; index < PyTuple_GET_SIZE(metadata.get()); ++index) {
        arguments.push_back(readNote(PyTuple_GET_ITEM(metadata.get(), index)));
    }
    return applyArguments(AnnotationTerm::ofText(TermKind::form, "Annotated"), std::move(arguments), budget_);
}

std::optional<AnnotationTerm> AnnotationReader::readForm(PyObject* form) const {
    std::string name = storedText(form, "_name");
    if (name.empty()) {
        return std::nullopt;
    }
    const TermKind kind = standsAlone(name) ? TermKind::name : TermKind::form;
    return AnnotationTerm::ofText(kind, std::move(name));
}

std::optional<AnnotationTerm> AnnotationReader::readVariable(PyObject* variable) const {
    const bool isNewType = isOfTyping(variable, "NewType");
    std::string name = isNewType || isVariable(variable) ? storedText(variable, "__name__") : std::string();
    if (name.empty()) {
        return std::nullopt;
    }
    const TermKind kind = isNewType ? TermKind::name : TermKind::variable;
    return AnnotationTerm{kind, Ref::share(variable), std::move(name), {}};
}

std::optional<AnnotationTerm> AnnotationReader::readSequence(PyObject* sequence) {
    auto elements = readArguments(sequence);
    const TermKind kind = PyTuple_CheckExact(sequence) ? TermKind::tuple : TermKind::list;
    return elements ? Result(AnnotationTerm::ofArguments(kind, *std::move(elements))) : std::nullopt;
}

std::optional<std::vector<AnnotationTerm>> AnnotationReader::readArguments(PyObject* arguments) {
    if (arguments == nullptr || !(PyTuple_CheckExact(arguments) || PyList_CheckExact(arguments))) {
        return std::nullopt;
    }
    Terms terms;
    for (Py_ssize_t index = 0; index < Py_SIZE(arguments); ++index) {
        const Ref element = elementAt(arguments, index);
        Result term = read(element.get());
        if (!term) {
            return std::nullopt;
        }
        terms.push_back(*std::move(term));
    }
    return terms;
}

}  // namespace python_host
