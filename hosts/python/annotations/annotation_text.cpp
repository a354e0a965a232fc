#include "hosts/python/annotations/annotation_text.h"

#include <string_view>
#include <utility>

#include "hosts/python/annotations/annotation_constants.h"
#include "hosts/python/classes/class_registry.h"

namespace python_host {

namespace {

constexpr std::size_t longest = 200;

bool continuesPoint(char byte) noexcept { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

/// Stops adding once the text is too long anyway.
class TermWriter {
public:
    void write(const AnnotationTerm& term) {
        if (text_.size() > longest) {
            return;
        }
        switch (term.kind) {
            case TermKind::cls:
                return writeClass(term);
            case TermKind::generic:
                return writeGeneric(term);
            case TermKind::unionOf:
                return writeAll(term.arguments, " | ");
            case TermKind::literal:
                return writeEnclosed("Literal[", term.arguments, "]");
            case TermKind::annotated:
                return write(term.arguments.front());
            case TermKind::constant:
                text_ += sourceTextOf(term.object.get()).value_or("...");
                return;
            case TermKind::list:
                return writeEnclosed("[", term.arguments, "]");
            case TermKind::tuple:
                return writeEnclosed("(", term.arguments, term.arguments.size() == 1 ? ",)" : ")");
            default:
                text_ += term.text;
        }
    }

    std::string take() && { return bounded(std::move(text_)); }

private:
    void writeClass(const AnnotationTerm& term) {
        PyTypeObject* type = asType(term.object.get());
        if (type == Py_TYPE(Py_None)) {
            text_ += "None";
            return;
        }
        std::string_view name = ClassRegistry::instance().objectOf(type).getID().view();
        constexpr std::string_view builtins = "builtins.";
        name.remove_prefix(name.starts_with(builtins) ? builtins.size() : 0);
        text_ += name;
    }

    void writeGeneric(const AnnotationTerm& term) {
        if (term.object && PyType_Check(term.object.get())) {
            writeClass(term);
        } else {
            text_ += term.text;
        }
        const bool isEmpty = term.arguments.empty();
        writeEnclosed("[", term.arguments, isEmpty ? "()]" : "]");
    }

    void writeEnclosed(std::string_view opening, const std::vector<AnnotationTerm>& terms, std::string_view closing) {
        text_ += opening;
        writeAll(terms, ", ");
        text_ += closing;
    }

    void writeAll(const std::vector<AnnotationTerm>& terms, std::string_view separator) {
        bool isFirst = true;
        for (const AnnotationTerm& term : terms) {
            if (text_.size() > longest) {
                return;
            }
            text_ += isFirst ? std::string_view() : separator;
            isFirst = false;
            write(term);
        }
    }

    std::string text_;
};

}  // namespace

std::string bounded(std::string text) {
    if (text.size() <= longest) {
        return text;
    }
    constexpr std::string_view mark = "...";
    std::size_t end = longest - mark.size();
    while (end > 0 && continuesPoint(text[end])) {
        --end;
    }
    text.resize(end);
    return text.append(mark);
}

std::string shortTextOf(const AnnotationTerm& term) {
    TermWriter writer;
    writer.write(term);
    return std::move(writer).take();
}

}  // namespace python_host
