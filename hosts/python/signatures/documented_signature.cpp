#include "hosts/python/signatures/documented_signature.h"

#include <string>
#include <utility>

#include "hosts/python/signatures/parameter_text.h"

namespace python_host {

namespace {

/// "a.mean(" is a way to write a method.
std::string_view withoutOwner(std::string_view text) {
    const std::size_t dot = text.find('.');
    return dot != std::string_view::npos && isPlainParameterName(text.substr(0, dot)) ? text.substr(dot + 1) : text;
}

/// What stands in the brackets behind the function's name.
std::optional<std::string_view> findParameters(std::string_view documentation, std::string_view function) {
    const std::string_view name = function.substr(function.rfind('.') + 1);
    const std::string_view paragraph =
        withoutOwner(withoutBlanks(documentation.substr(0, documentation.find("\n\n", 1))));
    if (name.empty() || !paragraph.starts_with(name) || !paragraph.substr(name.size()).starts_with('(')) {
        return std::nullopt;
    }
    const std::string_view rest = paragraph.substr(name.size() + 1);
    Nesting nesting;
    for (std::size_t position = 0; position < rest.size(); ++position) {
        if (rest[position] == ')' && nesting.isOutside()) {
            return rest.substr(0, position);
        }
        if (!nesting.pass(rest[position])) {
            break;
        }
    }
    return std::nullopt;
}

/// Square brackets tell what may be left out, which matters to nobody here.
std::string withoutSquareBrackets(std::string_view text) {
    std::string plain(text);
    std::erase_if(plain, [](char c) { return c == '[' || c == ']'; });
    return plain;
}

/// Takes the parameters one by one; each step is false when the text cannot be understood.
class Reader {
public:
    bool take(std::string_view part) {
        if (part.empty() || part == "..." || part == "/") {
            return true;
        }
        if (part.starts_with('*')) {
            isBehindStar_ = true;
            return part == "*" || isPlainParameterName(part.substr(part.find_first_not_of('*')));
        }
        return part.starts_with('(') ? takeGroup(part) : takeNamed(part);
    }

    Signature finish() && { return std::move(parameters_); }

private:
    /// "(a1, a2, ...)" is one argument.
    bool takeGroup(std::string_view part) {
        const std::string_view first = part.substr(1, part.find_first_of(",)") - 1);
        parameters_.push_back({std::string(withoutBlanks(first)), ParameterKind::positionalOnly});
        return isPlainParameterName(parameters_.back().name);
    }

    bool takeNamed(std::string_view part) {
        const std::size_t mark = part.find('=');
        const std::string_view name = withoutBlanks(part.substr(0, mark));
        const ParameterKind named = isBehindStar_ ? ParameterKind::keywordOnly : ParameterKind::positionalOrKeyword;
        const bool hasDefault = mark != std::string_view::npos;
        parameters_.push_back({std::string(name), hasDefault || isBehindStar_ ? named : ParameterKind::positionalOnly});
        return isPlainParameterName(name);
    }

    Signature parameters_;
    bool isBehindStar_ = false;
};

}  // namespace

std::optional<Signature> documentedSignatureOf(std::string_view documentation, std::string_view function) {
    const auto text = findParameters(documentation, function);
    if (!text) {
        return std::nullopt;
    }
    const std::string plain = withoutSquareBrackets(*text);
    const auto parts = splitAtCommas(plain);
    if (!parts) {
        return std::nullopt;
    }
    Reader reader;
    for (const std::string_view part : *parts) {
        if (!reader.take(part)) {
            return std::nullopt;
        }
    }
    return std::move(reader).finish();
}

}  // namespace python_host
