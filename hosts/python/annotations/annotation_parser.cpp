#include "hosts/python/annotations/annotation_parser.h"

#include <string>
#include <utility>
#include <vector>

#include "hosts/python/annotations/annotation_cursor.h"
#include "hosts/python/annotations/annotation_enumerations.h"
#include "hosts/python/annotations/annotation_forms.h"
#include "hosts/python/annotations/annotation_notes.h"
#include "hosts/python/python_text.h"

namespace python_host {

namespace {

using Terms = std::vector<AnnotationTerm>;
using Result = std::optional<AnnotationTerm>;

constexpr std::size_t longestText = 65'536;

class AnnotationParser {
public:
    AnnotationParser(std::string_view text, AnnotationReader& reader) : cursor_(text), reader_(reader) {}

    Result parse() {
        Result result = parseType();
        return cursor_.atEnd() ? result : std::nullopt;
    }

private:
    Result parseType() {
        const AnnotationReader::Level level(reader_);
        if (!level.isEntered()) {
            return std::nullopt;
        }
        Result first = parseSubscripted();
        if (!first || cursor_.peek() != '|') {
            return first;
        }
        Terms members;
        members.push_back(*std::move(first));
        while (cursor_.take("|")) {
            Result member = parseSubscripted();
            if (!member) {
                return std::nullopt;
            }
            members.push_back(*std::move(member));
        }
        return apply(AnnotationTerm::ofText(TermKind::form, "Union"), std::move(members));
    }

    Result parseSubscripted() {
        cursor_.skipBlanks();
        const std::size_t start = cursor_.position();
        Result result = parseAtom();
        while (result && cursor_.peek() == '[') {
            result = parseSubscript(*result, start);
        }
        return result;
    }

    Result parseAtom() {
        if (cursor_.atString()) {
            const Ref text = cursor_.takeString();
            return text ? reader_.read(text.get()) : std::nullopt;
        }
        if (cursor_.atNumber()) {
            return constant(cursor_.takeNumber());
        }
        if (cursor_.take("...")) {
            return AnnotationTerm::ofObject(TermKind::constant, Py_Ellipsis);
        }
        if (cursor_.take("(")) {
            return parseParenthesised();
        }
        if (cursor_.take("[")) {
            auto elements = parseTypes(']');
            return elements ? Result(AnnotationTerm::ofArguments(TermKind::list, *std::move(elements))) : std::nullopt;
        }
        return parseName(cursor_.takeDottedName());
    }

    static Result constant(const Ref& object) {
        return object ? Result(AnnotationTerm::ofObject(TermKind::constant, object.get())) : std::nullopt;
    }

    Result parseName(std::string_view name) {
        if (name.empty()) {
            return std::nullopt;
        }
        if (name == "None") {
            return AnnotationTerm::ofNone();
        }
        if (name == "True" || name == "False") {
            return AnnotationTerm::ofObject(TermKind::constant, name == "True" ? Py_True : Py_False);
        }
        const Ref found = reader_.scope().find(name);
        Result meaning = found ? reader_.read(found.get()) : std::nullopt;
        const bool isMeant = meaning && (meaning->isType() || meaning->kind == TermKind::form);
        return isMeant ? meaning : Result(AnnotationTerm::ofText(TermKind::name, std::string(name)));
    }

    /// One type in parentheses is itself; several, or none, are a tuple.
    Result parseParenthesised() {
        bool endsWithComma = false;
        auto elements = parseTypes(')', &endsWithComma);
        if (!elements) {
            return std::nullopt;
        }
        if (elements->size() == 1 && !endsWithComma) {
            return std::move(elements->front());
        }
        return AnnotationTerm::ofArguments(TermKind::tuple, *std::move(elements));
    }

    /// Types up to a closing bracket, which is taken too.
    std::optional<Terms> parseTypes(char closing, bool* endsWithComma = nullptr) {
        return parseElements(closing, endsWithComma, [this] { return parseType(); });
    }

    template <class Parse>
    std::optional<Terms> parseElements(char closing, bool* endsWithComma, Parse parse) {
        Terms elements;
        bool isSeparated = true;
        while (!cursor_.take({&closing, 1})) {
            if (!isSeparated) {
                return std::nullopt;
            }
            Result element = parse();
            if (!element) {
                return std::nullopt;
            }
            elements.push_back(*std::move(element));
            isSeparated = cursor_.take(",");
        }
        if (endsWithComma != nullptr) {
            *endsWithComma = isSeparated && !elements.empty();
        }
        return elements;
    }

    Result parseSubscript(const AnnotationTerm& head, std::size_t start) {
        cursor_.take("[");
        if (head.kind == TermKind::name && !head.object) {
            return parseUnknown(start);
        }
        if (head.isForm("Literal")) {
            return parseLiteral(head, start);
        }
        if (head.isForm("Annotated")) {
            return parseAnnotated(head);
        }
        auto arguments = parseTypes(']');
        if (!arguments || arguments->empty()) {
            return std::nullopt;
        }
        if (arguments->size() == 1 && arguments->front().kind == TermKind::tuple) {
            arguments = std::exchange(arguments->front().arguments, {});
        }
        return apply(head, *std::move(arguments));
    }

    /// What stands in the brackets of something unknown cannot be known either; the text stays as it is.
    Result parseUnknown(std::size_t start) {
        if (!skipToBracket()) {
            return std::nullopt;
        }
        return AnnotationTerm::ofText(TermKind::name, std::string(cursor_.textSince(start)));
    }

    bool skipToBracket() {
        std::string_view skipped;
        do {
            if (!cursor_.takeBalanced(skipped)) {
                return false;
            }
        } while (cursor_.take(","));
        return cursor_.take("]");
    }

    Result parseLiteral(const AnnotationTerm& head, std::size_t start) {
        auto values = parseElements(']', nullptr, [this] { return parseLiteralValue(); });
        if (!values) {
            return std::nullopt;
        }
        for (const AnnotationTerm& value : *values) {
            if (value.kind == TermKind::name) {
                return AnnotationTerm::ofText(TermKind::name, std::string(cursor_.textSince(start)));
            }
        }
        return apply(head, *std::move(values));
    }

    Result parseLiteralValue() {
        if (!reader_.budget().take()) {
            return std::nullopt;
        }
        if (cursor_.atString()) {
            return constant(cursor_.takeString());
        }
        if (cursor_.atNumber()) {
            return constant(cursor_.takeNumber());
        }
        const std::size_t start = cursor_.position();
        const std::string_view name = cursor_.takeDottedName();
        if (name == "None") {
            return AnnotationTerm::ofObject(TermKind::constant, Py_None);
        }
        if (cursor_.peek() == '[') {
            Result head = parseName(name);
            return head ? parseSubscript(*head, start) : std::nullopt;
        }
        const Ref member = reader_.scope().find(name);
        if (member && isEnumerationMember(member.get())) {
            return AnnotationTerm::ofObject(TermKind::constant, member.get());
        }
        return parseName(name);
    }

    Result parseAnnotated(const AnnotationTerm& head) {
        Terms arguments;
        Result type = parseType();
        if (!type) {
            return std::nullopt;
        }
        arguments.push_back(*std::move(type));
        while (cursor_.take(",")) {
            std::string_view text;
            if (!cursor_.takeBalanced(text)) {
                return std::nullopt;
            }
            if (auto note = parseNote(text, reader_.scope())) {
                arguments.push_back(*std::move(note));
            }
        }
        if (!cursor_.take("]")) {
            return std::nullopt;
        }
        return arguments.size() == 1 ? Result(std::move(arguments.front())) : apply(head, std::move(arguments));
    }

    Result apply(const AnnotationTerm& head, Terms arguments) {
        return applyArguments(head, std::move(arguments), reader_.budget());
    }

    AnnotationCursor cursor_;
    AnnotationReader& reader_;
};

}  // namespace

std::optional<AnnotationTerm> parseAnnotation(std::string_view text, AnnotationReader& reader) {
    // Texts may name one another many times over, so their length counts.
    const bool isAffordable = text.size() <= longestText && reader.budget().take(text.size() / 8);
    return isAffordable ? AnnotationParser(text, reader).parse() : std::nullopt;
}

}  // namespace python_host
