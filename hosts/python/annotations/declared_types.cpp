#include "hosts/python/annotations/declared_types.h"

#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "hosts/python/annotations/annotation_limits.h"
#include "hosts/python/annotations/annotation_objects.h"
#include "hosts/python/annotations/annotation_reader.h"
#include "hosts/python/annotations/annotation_scope.h"
#include "hosts/python/annotations/data_type_of_annotation.h"
#include "hosts/python/annotations/declared_types_getters.h"
#include "hosts/python/annotations/declared_types_traits.h"
#include "hosts/python/members/traits.h"

namespace python_host {

namespace {

using Result = std::optional<AnnotationTerm>;

/// Only what can be the type of an attribute says something.
Result onlyType(Result term) { return term && term->isType() ? std::move(term) : std::nullopt; }

/// One attribute of one class, and the places in which a type may be declared for it.
class Declaration {
public:
    Declaration(PyTypeObject* declarer, std::string_view name)
        : declarer_(declarer),
          name_(name),
          dictionary_(Ref::share(declarer->tp_dict)),
          value_(itemOfDictionary(dictionary_.get(), name)),
          modelField_(fieldOf("__fields__", "pydantic.fields", "ModelField")) {}

    Result type() const {
        for (const auto source : {&Declaration::ofAnnotation, &Declaration::ofGetter, &Declaration::ofDataClass,
                                  &Declaration::ofModel, &Declaration::ofTrait}) {
            if (Result term = onlyType((this->*source)())) {
                return term;
            }
        }
        return std::nullopt;
    }

    std::vector<std::string> limits() const {
        const Ref info = modelField_ ? storedAttribute(modelField_.get(), "field_info") : Ref();
        if (info) {
            return limitsOf(info.get());
        }
        return isDeclaredByTrait() ? limitsOf(value_.get()) : std::vector<std::string>();
    }

private:
    Ref fieldOf(std::string_view table, std::string_view module, std::string_view fieldClass) const {
        const Ref fields = itemOfDictionary(dictionary_.get(), table);
        Ref field = itemOfDictionary(fields.get(), name_);
        return field && isOfLoadedClass(field.get(), module, fieldClass) ? field : Ref();
    }

    Result read(const Ref& annotation) const {
        return annotation ? AnnotationReader(AnnotationScope(declarer_)).read(annotation.get()) : std::nullopt;
    }

    Result ofAnnotation() const {
        const Ref annotations = itemOfDictionary(dictionary_.get(), "__annotations__");
        return read(itemOfDictionary(annotations.get(), name_));
    }

    Result ofGetter() const {
        const GetterResult result = value_ ? resultOfGetter(value_.get()) : GetterResult();
        if (!result.annotation) {
            return std::nullopt;
        }
        return AnnotationReader(AnnotationScope(declarer_, result.globals.get())).read(result.annotation.get());
    }

    Result ofDataClass() const {
        const Ref field = fieldOf("__dataclass_fields__", "dataclasses", "Field");
        return field ? read(storedAttribute(field.get(), "type")) : std::nullopt;
    }

    /// The inner type leaves out the containers around it, so the outer one is asked first.
    Result ofModel() const {
        if (!modelField_) {
            return std::nullopt;
        }
        Result outer = onlyType(read(storedAttribute(modelField_.get(), "outer_type_")));
        return outer ? outer : read(storedAttribute(modelField_.get(), "type_"));
    }

    bool isDeclaredByTrait() const { return value_ && isTrait(value_.get()); }

    Result ofTrait() const { return isDeclaredByTrait() ? typeOfTrait(value_.get()) : std::nullopt; }

    PyTypeObject* declarer_;
    std::string_view name_;
    Ref dictionary_;
    Ref value_;
    Ref modelField_;
};

}  // namespace

zelk::COSDataTypePtr declaredTypeOf(PyTypeObject* declarer, zelk::COSInternedID name) {
    const Ref keep = Ref::share(declarer);
    const Declaration declaration(declarer, name.view());
    const auto term = declaration.type();
    return term ? dataTypeOf(*term, declaration.limits()) : zelk::COSDataTypePtr();
}

}  // namespace python_host
