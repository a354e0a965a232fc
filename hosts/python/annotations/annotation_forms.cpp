#include "hosts/python/annotations/annotation_forms.h"

#include <algorithm>
#include <initializer_list>
#include <string_view>
#include <utility>

namespace python_host {

namespace {

using Terms = std::vector<AnnotationTerm>;
using Result = std::optional<AnnotationTerm>;

bool contains(std::initializer_list<std::string_view> names, std::string_view name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

/// Forms that say something about the attribute or the parameter, and nothing about its values.
bool isWrapper(std::string_view form) {
    return contains({"ClassVar", "Final", "InitVar", "Required", "NotRequired", "ReadOnly"}, form);
}

void append(Terms& terms, const Terms& more) { terms.insert(terms.end(), more.begin(), more.end()); }

Result onlyArgument(Terms arguments) {
    const bool fits = arguments.size() == 1 && arguments.front().isType();
    return fits ? Result(std::move(arguments.front())) : std::nullopt;
}

Result makeUnion(const Terms& arguments) {
    Terms members;
    for (const AnnotationTerm& argument : arguments) {
        if (!argument.isType()) {
            return std::nullopt;
        }
        if (argument.kind == TermKind::unionOf) {
            append(members, argument.arguments);
        } else {
            members.push_back(argument);
        }
    }
    return members.size() == 1 ? onlyArgument(std::move(members))
                               : Result(AnnotationTerm::ofArguments(TermKind::unionOf, std::move(members)));
}

Result makeOptional(Terms arguments) {
    if (arguments.size() != 1) {
        return std::nullopt;
    }
    arguments.push_back(AnnotationTerm::ofNone());
    return makeUnion(arguments);
}

Result makeLiteral(const Terms& arguments) {
    Terms constants;
    for (const AnnotationTerm& argument : arguments) {
        if (argument.kind == TermKind::literal) {
            append(constants, argument.arguments);
        } else if (argument.kind == TermKind::constant) {
            constants.push_back(argument);
        } else {
            return std::nullopt;
        }
    }
    return constants.empty() ? std::nullopt
                             : Result(AnnotationTerm::ofArguments(TermKind::literal, std::move(constants)));
}

Result makeAnnotated(Terms arguments) {
    if (arguments.size() < 2 || !arguments.front().isType()) {
        return std::nullopt;
    }
    if (arguments.front().kind == TermKind::annotated) {
        AnnotationTerm inner = std::move(arguments.front());
        inner.arguments.insert(inner.arguments.end(), arguments.begin() + 1, arguments.end());
        return inner;
    }
    return AnnotationTerm::ofArguments(TermKind::annotated, std::move(arguments));
}

Result makeGeneric(const AnnotationTerm& head, Terms arguments) {
    return AnnotationTerm{TermKind::generic, head.object, head.text, std::move(arguments)};
}

Result applyForm(const AnnotationTerm& form, Terms arguments) {
    if (isWrapper(form.text)) {
        return onlyArgument(std::move(arguments));
    }
    if (form.text == "Optional") {
        return makeOptional(std::move(arguments));
    }
    if (form.text == "Union") {
        return arguments.empty() ? std::nullopt : makeUnion(arguments);
    }
    if (form.text == "Literal") {
        return makeLiteral(arguments);
    }
    return form.text == "Annotated" ? makeAnnotated(std::move(arguments)) : makeGeneric(form, std::move(arguments));
}

std::size_t sizeOf(const AnnotationTerm& term) {
    std::size_t size = 1;
    for (const AnnotationTerm& argument : term.arguments) {
        size += sizeOf(argument);
    }
    return size;
}

/// Puts arguments in the place of an alias's type variables, which count in the order in which they first appear.
class Substitution {
public:
    Substitution(Terms arguments, AnnotationBudget& budget) : arguments_(std::move(arguments)), budget_(budget) {}

    Result applyTo(const AnnotationTerm& alias) {
        Result result = replaced(alias);
        return seen_.size() == arguments_.size() ? result : std::nullopt;
    }

private:
    Result replaced(const AnnotationTerm& term) {
        if (term.kind == TermKind::variable) {
            return argumentFor(term.object.get());
        }
        if (!budget_.take()) {
            return std::nullopt;
        }
        AnnotationTerm result{term.kind, term.object, term.text, {}};
        for (const AnnotationTerm& argument : term.arguments) {
            Result inner = replaced(argument);
            if (!inner) {
                return std::nullopt;
            }
            result.arguments.push_back(*std::move(inner));
        }
        return result;
    }

    Result argumentFor(PyObject* variable) {
        auto place = std::find(seen_.begin(), seen_.end(), variable);
        if (place == seen_.end()) {
            place = seen_.insert(place, variable);
        }
        const auto index = static_cast<std::size_t>(place - seen_.begin());
        const bool fits = index < arguments_.size() && budget_.take(sizeOf(arguments_[index]));
        return fits ? Result(arguments_[index]) : std::nullopt;
    }

    Terms arguments_;
    std::vector<PyObject*> seen_;
    AnnotationBudget& budget_;
};

}  // namespace

bool standsAlone(const std::string& form) {
    return contains({"Any", "LiteralString", "Never", "NoReturn", "Self", "TypeAlias"}, form);
}

std::optional<AnnotationTerm> applyArguments(const AnnotationTerm& head, std::vector<AnnotationTerm> arguments,
                                             AnnotationBudget& budget) {
    switch (head.kind) {
        case TermKind::cls:
        case TermKind::name:
            return makeGeneric(head, std::move(arguments));
        case TermKind::form:
            return applyForm(head, std::move(arguments));
        case TermKind::generic:
        case TermKind::unionOf:
        case TermKind::annotated:
            return Substitution(std::move(arguments), budget).applyTo(head);
        default:
            return std::nullopt;
    }
}

}  // namespace python_host
