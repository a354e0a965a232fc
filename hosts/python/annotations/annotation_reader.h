// From an annotation, alive or as a text, to what it says.
#pragma once

#include <Python.h>

#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "hosts/python/annotations/annotation_scope.h"
#include "hosts/python/annotations/annotation_term.h"
#include "hosts/python/references.h"

namespace python_host {

/// Reads one annotation. Whatever is neither a class nor made by the standard ways of writing types says nothing.
class AnnotationReader {
public:
    explicit AnnotationReader(AnnotationScope scope) : scope_(std::move(scope)) {}

    /// What an object says as an annotation or as an argument within one; nothing when it is not understood.
    std::optional<AnnotationTerm> read(PyObject* object);

    /// What a text says when it stands for an annotation.
    std::optional<AnnotationTerm> readText(std::string_view text);

    const AnnotationScope& scope() const noexcept { return scope_; }
    AnnotationBudget& budget() noexcept { return budget_; }

    /// One level of nesting, for as long as it lives. Not entered when that is too deep, or when the object is being
    /// read already: an alias may speak of itself.
    class Level {
    public:
        Level(AnnotationReader& reader, PyObject* object);
        explicit Level(AnnotationReader& reader) : Level(reader, nullptr) {}
        Level(const Level&) = delete;
        Level& operator=(const Level&) = delete;
        ~Level() { reader_.open_.pop_back(); }

        bool isEntered() const noexcept { return entered_; }

    private:
        AnnotationReader& reader_;
        bool entered_;
    };

private:
    using Result = std::optional<AnnotationTerm>;

    Result readClass(PyTypeObject* type) const;
    Result readNested(PyObject* object);
    Result readBuiltInAlias(PyObject* object);
    Result readTypingObject(PyObject* object);
    Result readGeneric(PyObject* alias, const Ref& origin, const Ref& arguments);
    Result readAnnotated(PyObject* alias);
    Result readForm(PyObject* form) const;
    Result readVariable(PyObject* variable) const;
    Result readSequence(PyObject* sequence);
    std::optional<std::vector<AnnotationTerm>> readArguments(PyObject* arguments);

    AnnotationScope scope_;
    AnnotationBudget budget_;
    std::vector<PyObject*> open_;
};

}  // namespace python_host
