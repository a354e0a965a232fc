#include "hosts/python/annotations/annotation_sizes.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>

#include "hosts/python/annotations/annotation_constants.h"
#include "hosts/python/python_text.h"
#include "hosts/python/values/callables.h"

namespace python_host {

namespace {

using Dimension = std::optional<std::string>;
using Dimensions = std::optional<std::vector<std::string>>;

const std::string anyExtent = ":";

bool isArrayClass(PyTypeObject* type) {
    // A class that is compiled in cannot be derived under its own name, so the name and the flag tell it.
    for (PyTypeObject* candidate = type; candidate != nullptr; candidate = candidate->tp_base) {
        if ((candidate->tp_flags & Py_TPFLAGS_HEAPTYPE) == 0 && isNamedType(candidate, "numpy.ndarray")) {
            return true;
        }
    }
    return false;
}

bool isDigits(std::string_view text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

bool isName(std::string_view text) {
    const Ref object = Ref::steal(makeText(text));
    return object && isIdentifier(object.get());
}

/// A word that may stand for a dimension.
Dimension dimensionOfWord(std::string_view word) {
    const bool fits = word == anyExtent || isDigits(word) || isName(word);
    return fits ? Dimension(word) : std::nullopt;
}

/// Numbers, colons and names between commas or blanks.
Dimensions dimensionsOfText(std::string_view text) {
    constexpr std::string_view blanks = " \t";
    std::vector<std::string> result;
    const bool hasCommas = text.find(',') != std::string_view::npos;
    const std::string_view separators = hasCommas ? "," : blanks;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of(separators), text.size());
        std::string_view word = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        word.remove_prefix(std::min(word.find_first_not_of(blanks), word.size()));
        word = word.substr(0, word.find_last_not_of(blanks) + 1);
        if (word.empty() && !hasCommas) {
            continue;
        }
        const Dimension dimension = dimensionOfWord(word);
        if (!dimension) {
            return std::nullopt;
        }
        result.push_back(*dimension);
    }
    return result;
}

Dimension dimensionOfConstant(PyObject* constant) {
    if (constant == Py_None || constant == Py_Ellipsis) {
        return anyExtent;
    }
    if (PyUnicode_CheckExact(constant)) {
        return dimensionOfWord(lossyUtf8Of(constant));
    }
    const auto number = PyLong_CheckExact(constant) ? sourceTextOf(constant) : std::nullopt;
    return number && isDigits(*number) ? number : std::nullopt;
}

Dimension dimensionOfElement(const AnnotationTerm& element) {
    return element.kind == TermKind::constant ? dimensionOfConstant(element.object.get()) : std::nullopt;
}

/// An argument of the tuple type that is an array's shape.
Dimension dimensionOfArgument(const AnnotationTerm& argument) {
    switch (argument.kind) {
        case TermKind::cls:
            return argument.object.get() == asObject(&PyLong_Type) ? Dimension(anyExtent) : std::nullopt;
        case TermKind::name:
        case TermKind::variable:
            return argument.text == "Any" ? Dimension(anyExtent) : dimensionOfWord(argument.text);
        case TermKind::literal:
            return argument.arguments.size() == 1 ? dimensionOfElement(argument.arguments.front())
                                                  : Dimension(anyExtent);
        default:
            return std::nullopt;
    }
}

template <class Read>
Dimensions each(const std::vector<AnnotationTerm>& terms, Read read) {
    std::vector<std::string> result;
    for (const AnnotationTerm& term : terms) {
        Dimension dimension = read(term);
        if (!dimension) {
            return std::nullopt;
        }
        result.push_back(*std::move(dimension));
    }
    return result;
}

Dimensions dimensionsOfShape(const AnnotationTerm& shape) {
    if (shape.kind == TermKind::tuple) {
        return each(shape.arguments, dimensionOfElement);
    }
    const bool isTuple = shape.kind == TermKind::generic && shape.object.get() == asObject(&PyTuple_Type);
    return isTuple ? each(shape.arguments, dimensionOfArgument) : std::nullopt;
}

Dimensions dimensionsOfNote(const AnnotationTerm& note) {
    if (note.kind == TermKind::tuple) {
        return each(note.arguments, dimensionOfElement);
    }
    const bool isText = note.kind == TermKind::constant && PyUnicode_CheckExact(note.object.get());
    return isText ? dimensionsOfText(lossyUtf8Of(note.object.get())) : std::nullopt;
}

}  // namespace

bool isArrayType(const AnnotationTerm& term) {
    const bool isClass = term.kind == TermKind::cls || term.kind == TermKind::generic;
    return isClass && term.object && PyType_Check(term.object.get()) && isArrayClass(asType(term.object.get()));
}

std::vector<std::string> dimensionsOf(const AnnotationTerm& term) {
    const bool isAnnotated = term.kind == TermKind::annotated;
    const AnnotationTerm& type = isAnnotated ? term.arguments.front() : term;
    if (!isArrayType(type)) {
        return {};
    }
    for (std::size_t index = 1; isAnnotated && index < term.arguments.size(); ++index) {
        Dimensions noted = dimensionsOfNote(term.arguments[index]);
        if (noted && !noted->empty()) {
            return *std::move(noted);
        }
    }
    const bool hasShape = type.kind == TermKind::generic && !type.arguments.empty();
    return hasShape ? dimensionsOfShape(type.arguments.front()).value_or(std::vector<std::string>())
                    : std::vector<std::string>();
}

}  // namespace python_host
