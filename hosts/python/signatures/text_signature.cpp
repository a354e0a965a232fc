#include "hosts/python/signatures/text_signature.h"

#include <algorithm>
#include <string>
#include <utility>

#include "hosts/python/signatures/parameter_text.h"

namespace python_host {

namespace {

/// What stands in the brackets behind the function's name, up to the mark that ends a signature.
std::optional<std::string_view> findParameters(std::string_view documentation, std::string_view function) {
    const std::string_view name = function.substr(function.rfind('.') + 1);
    if (name.empty() || !documentation.starts_with(name) || !documentation.substr(name.size()).starts_with('(')) {
        return std::nullopt;
    }
    const std::string_view rest = documentation.substr(name.size() + 1);
    const std::size_t end = rest.find(")\n--\n\n");
    // A blank line ends the first paragraph, and with it what could be a signature.
    const bool isSignature = end != std::string_view::npos && end < rest.find("\n\n");
    return isSignature ? std::optional(rest.substr(0, end)) : std::nullopt;
}

/// Takes the parameters one by one; each step is false when nothing that is valid can come of them.
class Declaration {
public:
    bool take(std::string_view part) {
        if (isClosed_) {
            return false;
        }
        if (part == "/") {
            return endPositionals();
        }
        if (part.starts_with("**")) {
            isClosed_ = true;
            return isPlainParameterName(part.substr(2));
        }
        if (part.starts_with('*')) {
            return beginKeywords(part.substr(1));
        }
        if (part.starts_with('$')) {
            return takeOwner(part.substr(1));
        }
        return takeNamed(part);
    }

    Signature finish() && { return std::move(parameters_); }

private:
    bool endPositionals() {
        const bool isValid = !parameters_.empty() || hasOwner_;
        for (Parameter& parameter : parameters_) {
            parameter.kind = ParameterKind::positionalOnly;
        }
        return isValid && !std::exchange(hasSlash_, true) && kind_ != ParameterKind::keywordOnly;
    }

    bool beginKeywords(std::string_view collector) {
        const bool isFirst = std::exchange(kind_, ParameterKind::keywordOnly) != ParameterKind::keywordOnly;
        return isFirst && (collector.empty() || isPlainParameterName(collector));
    }

    /// The object that the function is bound to stands in front of all others.
    bool takeOwner(std::string_view name) {
        const bool isFirst = parameters_.empty() && kind_ != ParameterKind::keywordOnly;
        return isFirst && !std::exchange(hasOwner_, true) && isPlainParameterName(name);
    }

    bool takeNamed(std::string_view part) {
        const std::string_view name = withoutBlanks(part.substr(0, part.find_first_of(":=")));
        parameters_.push_back({std::string(name), kind_});
        return isPlainParameterName(name);
    }

    Signature parameters_;
    ParameterKind kind_ = ParameterKind::positionalOrKeyword;
    bool hasOwner_ = false;
    bool hasSlash_ = false;
    bool isClosed_ = false;
};

}  // namespace

std::optional<Signature> textSignatureOf(std::string_view documentation, std::string_view function) {
    const auto text = findParameters(documentation, function);
    const auto parts = text ? splitAtCommas(*text) : std::nullopt;
    if (!parts) {
        return std::nullopt;
    }
    Declaration declaration;
    const bool isValid =
        std::all_of(parts->begin(), parts->end(), [&](std::string_view part) { return declaration.take(part); });
    return isValid ? std::optional(std::move(declaration).finish()) : std::nullopt;
}

}  // namespace python_host
