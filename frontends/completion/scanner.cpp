#include "frontends/completion/scanner.h"

#include <array>
#include <utility>

#include "frontends/completion/characters.h"

namespace contextdata::completion {

ParsedText Scanner::scan() {
    while (position_ < text_.size() && stop_ == Refusal::none) {
        step();
    }
    return result();
}

void Scanner::step() {
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
    } else if (isLineEnd(unit)) {
        readLineEnd();
    } else if (isOpening(unit)) {
        readOpening(unit);
    } else if (isClosing(unit)) {
        readClosing();
    } else if (!readContinuation()) {
        readMark(unit);
    }
}

OpenBracket* Scanner::innermost() { return brackets_.empty() || deeperBrackets_ > 0 ? nullptr : &brackets_.back(); }

void Scanner::readName() {
    const std::size_t begin = position_;
    while (position_ < text_.size() && isNameUnit(text_[position_])) {
        ++position_;
    }
    const std::u16string_view name = text_.substr(begin, position_ - begin);
    const bool isMember = tail_ == Tail::nameDot;
    if (OpenBracket* bracket = innermost()) {
        isMember ? bracket->readOther() : bracket->readName(name);
    }
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
            readWord(name, begin);
            return;
    }
    operand_.chain.push_back(name);
    tail_ = Tail::name;
}

void Scanner::readWord(std::u16string_view word, std::size_t begin) {
    const bool followsName = tail_ == Tail::name;
    wordBefore_ = followsName && operand_.chain.size() == 1 ? operand_.chain.front() : std::u16string_view();
    if (!followsName) {
        operand_.chain.clear();
    }
    const bool isPartOfImport = import_.readWord(word, operand_.chain);
    operand_ = {{}, begin, false};
    if (isPartOfImport) {
        tail_ = Tail::nothing;
        return;
    }
    operand_.chain.push_back(word);
    tail_ = Tail::name;
}

void Scanner::readDot() {
    dotPosition_ = position_;
    if (position_ + 1 < text_.size() && isDigit(text_[position_ + 1])) {
        readNumber();
        return;
    }
    ++position_;
    if (OpenBracket* bracket = innermost()) {
        bracket->readOther();
    }
    switch (tail_) {
        case Tail::name:
        case Tail::subscript:
            tail_ = Tail::nameDot;
            return;
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
    import_.readOther();
}

/// Dots and letters that touch a number belong to it, be they its fraction or a mistake.
void Scanner::readNumber() {
    while (position_ < text_.size() && (isNameUnit(text_[position_]) || text_[position_] == u'.')) {
        ++position_;
    }
    if (OpenBracket* bracket = innermost()) {
        bracket->readConstant();
    }
    import_.readOther();
    tail_ = Tail::number;
}

void Scanner::readComment() {
    while (position_ < text_.size() && !isLineEnd(text_[position_])) {
        ++position_;
    }
    if (position_ == text_.size()) {
        stop_ = Refusal::insideComment;
    }
}

// A prefix such as `rb` was read as a name before; the string then takes its place. A backslash keeps a quote
// from closing in raw strings too.
void Scanner::readString() {
    quote_ = text_[position_];
    const std::array<char16_t, 3> three = {quote_, quote_, quote_};
    const std::u16string_view triple(three.data(), three.size());
    const bool isTriple = text_.substr(position_, triple.size()) == triple;
    const std::u16string_view closing = isTriple ? triple : triple.substr(0, 1);
    isPlainString_ = !isTriple && (position_ == 0 || !isNameUnit(text_[position_ - 1]));
    OpenBracket* bracket = innermost();
    isWholeKey_ = bracket != nullptr && bracket->role() == OpenBracket::Role::subscript && bracket->isEmpty();
    if (bracket != nullptr) {
        bracket->readConstant();
    }
    import_.readOther();
    position_ += closing.size();
    contentBegin_ = position_;
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
std::size_t Scanner::lengthInString() const {
    if (text_[position_] != u'\\') {
        return 1;
    }
    return text_.substr(position_ + 1, 2) == u"\r\n" ? 3 : 2;
}

/// Within brackets a statement goes on over the ends of lines; a chain of names does not.
void Scanner::readLineEnd() {
    ++position_;
    tail_ = Tail::nothing;
    if (brackets_.empty()) {
        import_.beginAnew();
    }
}

/// A line that ends with a backslash goes on in the next one.
bool Scanner::readContinuation() {
    if (text_[position_] != u'\\' || position_ + 1 == text_.size() || !isLineEnd(text_[position_ + 1])) {
        return false;
    }
    position_ += lengthInString();
    tail_ = Tail::nothing;
    return true;
}

/// Only functions that plain names lead to are known; `def name(` and `class Name(` are no calls.
bool Scanner::isCallee() const {
    const bool isDefined = wordBefore_ == u"def" || wordBefore_ == u"class";
    return tail_ == Tail::name && !operand_.isSubscripted && !isDefined;
}

void Scanner::readOpening(char16_t bracket) {
    using Role = OpenBracket::Role;
    if (OpenBracket* outer = innermost()) {
        outer->readOther();
    }
    import_.readOpening(bracket, tail_ == Tail::name);
    const bool isSubscript = bracket == u'[' && (tail_ == Tail::name || tail_ == Tail::subscript);
    const bool isCall = bracket == u'(' && isCallee();
    if (brackets_.size() == deepestBracket) {
        ++deeperBrackets_;
    } else if (isSubscript || isCall) {
        brackets_.emplace_back(isCall ? Role::call : Role::subscript, std::exchange(operand_, {}), position_);
    } else {
        const bool isOtherSubscript = bracket == u'[' && (tail_ == Tail::operand || tail_ == Tail::member);
        brackets_.emplace_back(isOtherSubscript ? Role::otherSubscript : Role::other, Operand(), position_);
    }
    tail_ = Tail::nothing;
    ++position_;
}

/// After a closing bracket stands the value of the bracket.
void Scanner::readClosing() {
    const bool isConstantSubscript = innermost() != nullptr && text_[position_] == u']' &&
                                     innermost()->role() == OpenBracket::Role::subscript &&
                                     innermost()->holdsConstants();
    tail_ = Tail::operand;
    if (isConstantSubscript) {
        operand_ = innermost()->takeBefore();
        operand_.isSubscripted = true;
        tail_ = Tail::subscript;
    }
    if (deeperBrackets_ > 0) {
        --deeperBrackets_;
    } else if (!brackets_.empty()) {
        brackets_.pop_back();
    }
    import_.readOther();
    ++position_;
}

void Scanner::readMark(char16_t mark) {
    ++position_;
    tail_ = Tail::nothing;
    if (mark == u',') {
        import_.readComma();
        if (OpenBracket* bracket = innermost()) {
            bracket->readComma();
        }
        return;
    }
    readOperator(mark);
}

void Scanner::readOperator(char16_t mark) {
    const bool isDouble = position_ < text_.size() && text_[position_] == mark;
    const bool endsClause = brackets_.empty() && (mark == u';' || mark == u':');
    endsClause ? import_.beginAnew() : import_.readOther();
    OpenBracket* bracket = innermost();
    if (bracket == nullptr) {
        return;
    }
    if (mark == u'=' && !isDouble) {
        bracket->readEquals();
    } else if (mark == u'=') {
        bracket->readOther();
    } else {
        bracket->readMark(mark);
    }
}

}  // namespace contextdata::completion
