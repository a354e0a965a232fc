#include "frontends/completion/parse.h"

#include <algorithm>
#include <array>

namespace contextdata::completion {

namespace {

bool isDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }
bool isAsciiLetter(char16_t unit) { return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z'); }
bool isNameStart(char16_t unit) { return isAsciiLetter(unit) || unit == u'_' || unit >= 0x80; }
bool isNameUnit(char16_t unit) { return isNameStart(unit) || isDigit(unit); }
bool isBlank(char16_t unit) { return unit == u' ' || unit == u'\t' || unit == u'\f'; }
bool isLineEnd(char16_t unit) { return unit == u'\n' || unit == u'\r'; }
bool isClosing(char16_t unit) { return unit == u')' || unit == u']' || unit == u'}'; }
bool isQuote(char16_t unit) { return unit == u'\'' || unit == u'"'; }

/// What the tokens read so far end in.
enum class Tail {
    nothing,     ///< the start of a line, an operator, an opening bracket
    name,        ///< a chain of names
    nameDot,     ///< a chain of names and a dot
    number,      ///< a number literal
    numberDot,   ///< a number literal, a dot, and what follows that
    operand,     ///< another operand: a literal, a closing bracket
    operandDot,  ///< such an operand and a dot
    member,      ///< such an operand, a dot and a name
    dangling,    ///< a dot with nothing before it, and what follows it
};

class Scanner {
public:
    explicit Scanner(std::u16string_view text) : text_(text) {}

    ParsedText scan() {
        while (position_ < text_.size() && stop_ == Refusal::none) {
            step();
        }
        return result();
    }

private:
    void step() {
        const char16_t unit = text_[position_];
        if (isBlank(unit)) {
            ++position_;
        } else if (isNameStart(unit)) {
            readName();
        } else if (unit == u'.') {
            readDot();
        } else if (isDigit(unit)) {
            readNumber();
        } else if (isQuote(unit)) {
            readString();
        } else if (unit == u'#') {
            readComment();
        } else {
            // A line end and every operator begin anew; after a closing bracket stands the value of the bracket.
            tail_ = isClosing(unit) ? Tail::operand : Tail::nothing;
            ++position_;
        }
    }

    void readName() {
        const std::size_t begin = position_;
        skipWhile(isNameUnit);
        switch (tail_) {
            case Tail::nameDot:
                break;
            case Tail::operandDot:
                tail_ = Tail::member;
                return;
            case Tail::numberDot:
                return;
            case Tail::dangling:
                // A name that keeps its distance is another word: `from . import name`.
                if (dotPosition_ + 1 == begin) {
                    return;
                }
                [[fallthrough]];
            default:
                chain_.clear();
        }
        chain_.push_back(text_.substr(begin, position_ - begin));
        tail_ = Tail::name;
    }

    void readDot() {
        dotPosition_ = position_;
        if (position_ + 1 < text_.size() && isDigit(text_[position_ + 1])) {
            readNumber();
            return;
        }
        ++position_;
        switch (tail_) {
            case Tail::name:
                tail_ = Tail::nameDot;
                break;
            case Tail::operand:
            case Tail::member:
                tail_ = Tail::operandDot;
                break;
            case Tail::number:
            case Tail::numberDot:
                tail_ = Tail::numberDot;
                break;
            default:
                tail_ = Tail::dangling;
        }
    }

    /// Dots and letters that touch a number belong to it, be they its fraction or a mistake.
    void readNumber() {
        skipWhile([](char16_t unit) { return isNameUnit(unit) || unit == u'.'; });
        tail_ = Tail::number;
    }

    void readComment() {
        while (position_ < text_.size() && !isLineEnd(text_[position_])) {
            ++position_;
        }
        if (position_ == text_.size()) {
            stop_ = Refusal::insideComment;
        }
    }

    // A prefix such as `rb` was read as a name before; the string then takes its place. A backslash keeps a quote
    // from closing in raw strings too.
    void readString() {
        const char16_t quote = text_[position_];
        const std::array<char16_t, 3> three = {quote, quote, quote};
        const std::u16string_view triple(three.data(), three.size());
        const bool isTriple = text_.substr(position_, triple.size()) == triple;
        const std::u16string_view closing = isTriple ? triple : triple.substr(0, 1);
        position_ += closing.size();
        tail_ = Tail::operand;
        while (position_ < text_.size()) {
            if (text_.substr(position_, closing.size()) == closing) {
                position_ += closing.size();
                return;
            }
            if (!isTriple && isLineEnd(text_[position_])) {
                // Never closed: a mistake that ends with its line.
                return;
            }
            position_ += lengthInString();
        }
        position_ = text_.size();
        stop_ = Refusal::insideString;
    }

    /// What follows a backslash is escaped by it, a line end of two units included.
    std::size_t lengthInString() const {
        if (text_[position_] != u'\\') {
            return 1;
        }
        return text_.substr(position_ + 1, 2) == u"\r\n" ? 3 : 2;
    }

    template <class Predicate>
    void skipWhile(Predicate predicate) {
        while (position_ < text_.size() && predicate(text_[position_])) {
            ++position_;
        }
    }

    ParsedText result() {
        ParsedText parsed;
        parsed.start = text_.size();
        parsed.end = text_.size();
        parsed.fragment = text_.substr(text_.size());
        parsed.refusal = refusal();
        if (parsed.refusal != Refusal::none) {
            return parsed;
        }
        if (tail_ == Tail::name) {
            parsed.fragment = chain_.back();
            parsed.start -= parsed.fragment.size();
            chain_.pop_back();
        }
        parsed.chain = std::move(chain_);
        return parsed;
    }

    Refusal refusal() const {
        if (stop_ != Refusal::none) {
            return stop_;
        }
        switch (tail_) {
            case Tail::nameDot:
                return Refusal::none;
            case Tail::name:
                return chain_.size() > 1 && !isBlank(text_.back()) ? Refusal::none : Refusal::noDot;
            case Tail::number:
            case Tail::numberDot:
                return Refusal::afterNumber;
            case Tail::operandDot:
            case Tail::member:
                return Refusal::needsEvaluation;
            case Tail::dangling:
                return Refusal::danglingDot;
            case Tail::nothing:
            case Tail::operand:
                break;
        }
        return Refusal::noDot;
    }

    std::u16string_view text_;
    std::size_t position_ = 0;
    std::size_t dotPosition_ = 0;
    Tail tail_ = Tail::nothing;
    Refusal stop_ = Refusal::none;
    std::vector<std::u16string_view> chain_;
};

}  // namespace

const char* textOf(Refusal refusal) noexcept {
    constexpr std::array<const char*, 7> texts = {
        "",
        "no dotted name",
        "in a string",
        "in a comment",
        "in or after a number",
        "after what has to be evaluated first",
        "after a dot with no name before it",
    };
    return texts[static_cast<std::size_t>(refusal)];
}

ParsedText parse(std::u16string_view text, std::size_t cursor) {
    return Scanner(text.substr(0, std::min(cursor, text.size()))).scan();
}

}  // namespace contextdata::completion
