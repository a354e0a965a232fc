#include "hosts/python/signatures/text_signature.h"

#include <algorithm>
#include <string>
#include <utility>

namespace python_host {

namespace {

constexpr std::string_view blanks = " \t\n";

std::string_view trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(blanks);
    return first == std::string_view::npos ? std::string_view()
                                           : text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

bool isLetter(char c) { return c == '_' || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool isDigit(char c) { return c >= '0' && c <= '9'; }

bool isName(std::string_view text) {
    return !text.empty() && isLetter(text.front()) &&
           std::all_of(text.begin(), text.end(), [](char c) { return isLetter(c) || isDigit(c); });
}

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

/// Follows brackets and quotes through defaults, which may hold commas of their own.
class Nesting {
public:
    /// False when the text cannot be balanced any more.
    bool pass(char c) {
        if (quote_ != '\0') {
            passInText(c);
            return true;
        }
        if (c == '\'' || c == '"') {
            quote_ = c;
        } else if (const std::size_t opening = std::string_view("([{").find(c); opening != std::string_view::npos) {
            closings_.push_back(")]}"[opening]);
        } else if (c == ')' || c == ']' || c == '}') {
            if (closings_.empty() || closings_.back() != c) {
                return false;
            }
            closings_.pop_back();
        }
        return true;
    }

    bool isOutside() const { return quote_ == '\0' && closings_.empty(); }

private:
    void passInText(char c) {
        if (isEscaped_) {
            isEscaped_ = false;
        } else if (c == '\\') {
            isEscaped_ = true;
        } else if (c == quote_) {
            quote_ = '\0';
        }
    }

    std::string closings_;
    char quote_ = '\0';
    bool isEscaped_ = false;
};

std::optional<std::vector<std::string_view>> splitAtCommas(std::string_view text) {
    std::vector<std::string_view> parts;
    Nesting nesting;
    std::size_t begin = 0;
    for (std::size_t position = 0; position < text.size(); ++position) {
        if (text[position] == ',' && nesting.isOutside()) {
            parts.push_back(trimmed(text.substr(begin, position - begin)));
            begin = position + 1;
        } else if (!nesting.pass(text[position])) {
            return std::nullopt;
        }
    }
    if (!nesting.isOutside()) {
        return std::nullopt;
    }
    // A comma may stand behind the last parameter.
    if (const std::string_view last = trimmed(text.substr(begin)); !last.empty()) {
        parts.push_back(last);
    }
    return parts;
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
            return isName(part.substr(2));
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
        return isFirst && (collector.empty() || isName(collector));
    }

    /// The object that the function is bound to stands in front of all others.
    bool takeOwner(std::string_view name) {
        const bool isFirst = parameters_.empty() && kind_ != ParameterKind::keywordOnly;
        return isFirst && !std::exchange(hasOwner_, true) && isName(name);
    }

    bool takeNamed(std::string_view part) {
        const std::string_view name = trimmed(part.substr(0, part.find_first_of(":=")));
        parameters_.push_back({std::string(name), kind_});
        return isName(name);
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
