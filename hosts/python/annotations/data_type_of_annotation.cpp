#include "hosts/python/annotations/data_type_of_annotation.h"

#include <optional>
#include <string>
#include <unordered_set>
#include <utility>

#include "hosts/python/annotations/annotation_constants.h"
#include "hosts/python/annotations/annotation_enumerations.h"
#include "hosts/python/annotations/annotation_sizes.h"
#include "hosts/python/annotations/annotation_text.h"
#include "hosts/python/annotations/annotation_validators.h"
#include "hosts/python/classes/class_registry.h"
#include "hosts/python/interning.h"

namespace python_host {

namespace {

using Values = std::vector<DataTypeValue>;

/// Nothing when the type admits more than could be listed.
using ValueList = std::optional<Values>;

ValueList valuesOfClass(PyTypeObject* type) {
    if (hasCombinedMembers(type)) {
        return std::nullopt;
    }
    Values values;
    for (std::string& name : enumerationMemberNames(type)) {
        values.push_back(DataTypeValue::ofText(std::move(name)));
    }
    return values.empty() ? std::nullopt : ValueList(std::move(values));
}

ValueList valuesOfConstants(const std::vector<AnnotationTerm>& constants) {
    Values values;
    for (const AnnotationTerm& constant : constants) {
        auto value = valueOf(constant.object.get());
        if (!value) {
            return std::nullopt;
        }
        values.push_back(*std::move(value));
    }
    return values;
}

ValueList valuesOf(const AnnotationTerm& term);

ValueList valuesOfMember(const AnnotationTerm& member) {
    const bool isNone = member.kind == TermKind::cls && member.object.get() == asObject(Py_TYPE(Py_None));
    return isNone ? ValueList(Values{DataTypeValue::ofConverted("None")}) : valuesOf(member);
}

ValueList valuesOfUnion(const std::vector<AnnotationTerm>& members) {
    Values values;
    for (const AnnotationTerm& member : members) {
        auto more = valuesOfMember(member);
        if (!more) {
            return std::nullopt;
        }
        values.insert(values.end(), more->begin(), more->end());
    }
    return values;
}

ValueList valuesOf(const AnnotationTerm& term) {
    switch (term.kind) {
        case TermKind::cls:
            return valuesOfClass(asType(term.object.get()));
        case TermKind::literal:
            return valuesOfConstants(term.arguments);
        case TermKind::unionOf:
            return valuesOfUnion(term.arguments);
        case TermKind::annotated:
            return valuesOf(term.arguments.front());
        default:
            return std::nullopt;
    }
}

std::string keyOf(const std::string& text) { return text; }

/// A text and another value may look alike.
std::string keyOf(const DataTypeValue& value) { return (value.getText() == nullptr ? 'v' : 't') + value.shownText(); }

template <class Element>
std::vector<Element> withoutRepeats(std::vector<Element> elements) {
    std::unordered_set<std::string> seen;
    std::erase_if(elements, [&seen](const Element& element) { return !seen.insert(keyOf(element)).second; });
    return elements;
}

zelk::COSInternedID idOfClass(const AnnotationTerm& cls) {
    return ClassRegistry::instance().objectOf(asType(cls.object.get())).getID();
}

zelk::COSInternedID idOf(const AnnotationTerm& type) {
    return type.kind == TermKind::cls ? idOfClass(type) : internName(shortTextOf(type));
}

/// The class that an array or a single class is of; empty for a type that only its identifier names.
zelk::COSInternedID classNameOf(const AnnotationTerm& type) {
    return type.kind == TermKind::cls || isArrayType(type) ? idOfClass(type) : zelk::COSInternedID();
}

}  // namespace

zelk::COSDataTypePtr dataTypeOf(const AnnotationTerm& term, const std::vector<std::string>& limits) {
    if (!term.isType()) {
        return {};
    }
    const bool isAnnotated = term.kind == TermKind::annotated;
    const AnnotationTerm& type = isAnnotated ? term.arguments.front() : term;
    DataTypeFacts facts{idOf(type), withoutRepeats(valuesOf(type).value_or(Values()))};
    if (facts.id.isEmpty()) {
        return {};
    }
    const bool isGenericArray = type.kind == TermKind::generic && isArrayType(type);
    if (!isAnnotated && !isGenericArray && limits.empty()) {
        return makeDataType(std::move(facts));
    }
    std::vector<std::string> validators = isAnnotated ? validatorsOf(term) : std::vector<std::string>();
    validators.insert(validators.end(), limits.begin(), limits.end());
    return makeValidationType(std::move(facts),
                              {classNameOf(type), dimensionsOf(term), withoutRepeats(std::move(validators))});
}

}  // namespace python_host
