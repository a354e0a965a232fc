#include "hosts/python/annotations/annotation_notes.h"

#include <string>
#include <utility>
#include <vector>

#include "hosts/python/annotations/annotation_constants.h"
#include "hosts/python/annotations/annotation_cursor.h"

namespace python_host {

namespace {

using Result = std::optional<AnnotationTerm>;

AnnotationTerm readElement(PyObject* object) {
    return AnnotationTerm::ofObject(isPlainConstant(object) ? TermKind::constant : TermKind::opaque, object);
}

Result constant(const Ref& object) {
    return object ? Result(AnnotationTerm::ofObject(TermKind::constant, object.get())) : std::nullopt;
}

Result parseConstant(AnnotationCursor& cursor) {
    if (cursor.atString()) {
        return constant(cursor.takeString());
    }
    if (cursor.atNumber()) {
        return constant(cursor.takeNumber());
    }
    if (cursor.take("...")) {
        return AnnotationTerm::ofObject(TermKind::constant, Py_Ellipsis);
    }
    return cursor.takeDottedName() == "None" ? Result(AnnotationTerm::ofObject(TermKind::constant, Py_None))
                                             : std::nullopt;
}

Result parseTuple(AnnotationCursor& cursor) {
    std::vector<AnnotationTerm> elements;
    while (!cursor.take(")")) {
        Result element = parseConstant(cursor);
        if (!element) {
            return std::nullopt;
        }
        elements.push_back(*std::move(element));
        if (!cursor.take(",") && cursor.peek() != ')') {
            return std::nullopt;
        }
    }
    return AnnotationTerm::ofArguments(TermKind::tuple, std::move(elements));
}

Result parseNamed(std::string_view name, AnnotationCursor& cursor, const AnnotationScope& scope) {
    const std::string_view shortName = name.substr(name.rfind('.') + 1);
    if (cursor.atEnd()) {
        const Ref found = scope.find(name);
        return found ? readNote(found.get()) : AnnotationTerm::ofText(TermKind::note, std::string(shortName));
    }
    if (cursor.peek() != '(') {
        return std::nullopt;
    }
    std::string_view arguments;
    if (!cursor.takeBalanced(arguments) || !arguments.ends_with(')')) {
        return std::nullopt;
    }
    return AnnotationTerm::ofText(TermKind::note, std::string(shortName).append(arguments));
}

}  // namespace

AnnotationTerm readNote(PyObject* object) {
    if (!PyTuple_CheckExact(object)) {
        return readElement(object);
    }
    std::vector<AnnotationTerm> elements;
    for (Py_ssize_t index = 0; index < PyTuple_GET_SIZE(object); ++index) {
        elements.push_back(readElement(PyTuple_GET_ITEM(object, index)));
    }
    return AnnotationTerm::ofArguments(TermKind::tuple, std::move(elements));
}

std::optional<AnnotationTerm> parseNote(std::string_view text, const AnnotationScope& scope) {
    AnnotationCursor cursor(text);
    Result note;
    const bool isConstant = cursor.atString() || cursor.atNumber() || text.starts_with("...") || text == "None";
    if (isConstant) {
        note = parseConstant(cursor);
    } else if (cursor.take("(")) {
        note = parseTuple(cursor);
    } else if (const std::string_view name = cursor.takeDottedName(); !name.empty()) {
        note = parseNamed(name, cursor, scope);
    }
    return cursor.atEnd() ? note : std::nullopt;
}

}  // namespace python_host
