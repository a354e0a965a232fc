// What an annotation says, as a small tree that no longer depends on where and how it was written.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "hosts/python/references.h"

namespace python_host {

enum class TermKind : std::uint8_t {
    cls,        ///< `object` is a class
    name,       ///< `text` says it all: a new type, `Any`, a name that was not found
    variable,   ///< `object` is a type variable, `text` its name
    form,       ///< a special form that means something with arguments only, by its name in `text`
    generic,    ///< the class `object`, or else `text`, with arguments
    unionOf,    ///< one of the arguments
    literal,    ///< one of the arguments, which are constants
    annotated,  ///< the first argument is a type, the others are said about it
    constant,   ///< `object` is a plain constant, or a member of an enumeration within a literal
    list,       ///< arguments in brackets of their own, as the parameters of a callable are
    tuple,      ///< the same in parentheses
    opaque,     ///< `object` is something that is said about a type
    note,       ///< something that is said about a type and is known by its `text` only
};

struct AnnotationTerm {
    TermKind kind;
    Ref object;
    std::string text;
    std::vector<AnnotationTerm> arguments;

    static AnnotationTerm ofObject(TermKind kind, PyObject* object) { return {kind, Ref::share(object), {}, {}}; }
    static AnnotationTerm ofText(TermKind kind, std::string text) { return {kind, {}, std::move(text), {}}; }
    static AnnotationTerm ofArguments(TermKind kind, std::vector<AnnotationTerm> arguments) {
        return {kind, {}, {}, std::move(arguments)};
    }
    static AnnotationTerm ofClass(PyTypeObject* type) { return ofObject(TermKind::cls, asObject(type)); }
    static AnnotationTerm ofNone() { return ofClass(Py_TYPE(Py_None)); }

    bool isForm(const char* name) const { return kind == TermKind::form && text == name; }

    /// Whether the term can stand alone as the type of an attribute.
    bool isType() const noexcept { return kind <= TermKind::annotated && kind != TermKind::form; }
};

/// How much may still be read of one annotation. Annotations can be made that unfold without end; such say nothing.
class AnnotationBudget {
public:
    bool take(std::size_t terms = 1) noexcept {
        if (terms > left_) {
            left_ = 0;
            return false;
        }
        left_ -= terms;
        return true;
    }

private:
    std::size_t left_ = 20'000;
};

}  // namespace python_host
