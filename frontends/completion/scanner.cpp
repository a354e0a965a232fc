#include "frontends/completion/scanner.h"

#include <array>
#include <utility>

#include "frontends/completion/characters.h"
#include "frontends/completion/words.h"

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
        readString(position_);
    } else if (unit == u'#') {
        readComment();
    } else if (isLineEnd(unit)) {
        readLineEnd();
    } else if (isOpening(unit)) {
        readOpening(unit);
    } else if (isClosing(unit)) {
        readClosing(unit);
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
    if (position_ < text_.size() && isQuote(text_[position_]) && !beginsOperand(name)) {
        readString(begin);
        return;
    }
    OpenBracket* bracket = innermost();
    if (tail_ == Tail::dot) {
        if (bracket != nullptr) {
            bracket->readMember();
        }
        operand_.chain.push_back(name);
        tail_ = Tail::name;
        return;
    }
    if (bracket != nullptr) {
        bracket->readName(name);
    }
    // A name that keeps its distance from a stray dot is another word: `from . import name`.
    const bool isAttached = tail_ == Tail::dangling && dotPosition_ + 1 == begin;
    if (tail_ != Tail::numberDot && !isAttached) {
        readWord(name, begin);
    }
}

void Scanner::readWord(std::u16string_view word, std::size_t begin) {
    const bool followsName = tail_ == Tail::name;
    const bool followsWord = followsName || tail_ == Tail::keyword;
    wordBefore_ = followsWord && operand_.chain.size() == 1 ? operand_.chain.front() : std::u16string_view();
    if (!followsName) {
        operand_.chain.clear();
    }
    const bool isPartOfImport = import_.readWord(word, operand_.chain);
    operand_ = {{}, begin};
    if (isPartOfImport) {
        tail_ = Tail::nothing;
        return;
    }
    operand_.chain.push_back(word);
    // One that the cursor touches may still become a name.
    tail_ = beginsOperand(word) && position_ < text_.size() ? Tail::keyword : Tail::name;
}

void Scanner::readDot() {
    dotPosition_ = position_;
    if (position_ + 1 < text_.size() && isDigit(text_[position_ + 1])) {
        readNumber();
        return;
    }
    ++position_;
    if (OpenBracket* bracket = innermost()) {
        bracket->readMember();
    }
    if (tail_ == Tail::name && operand_.form == Operand::Form::names) {
        tail_ = Tail::dot;
        return;
    }
    const bool followsNumber = tail_ == Tail::number || tail_ == Tail::numberDot;
    const bool followsOperand = tail_ == Tail::name || tail_ == Tail::operand;
    tail_ = followsOperand ? Tail::dot : followsNumber ? Tail::numberDot : Tail::dangling;
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

/// `begin` is where the letters before the string begin, which were read already.
void Scanner::readString(std::size_t begin) {
    prefix_ = text_.substr(begin, position_ - begin);
    quote_ = text_[position_];
    const std::array<char16_t, 3> three = {quote_, quote_, quote_};
    isTriple_ = text_.substr(position_, three.size()) == std::u16string_view(three.data(), three.size());
    noteString(begin);
    position_ += isTriple_ ? three.size() : 1;
    contentBegin_ = position_;
    readContent();
}

/// What a string is to those around it. Only formatted ones hold code.
void Scanner::noteString(std::size_t begin) {
    const bool isFormatted = prefix_.find_first_of(u"fF") != std::u16string_view::npos;
    const bool isBytes = prefix_.find_first_of(u"bB") != std::u16string_view::npos;
    const bool isKnown = prefix_.empty() || isStringPrefix(prefix_);
    OpenBracket* bracket = innermost();
    isWholeKey_ = bracket != nullptr && bracket->role() == OpenBracket::Role::subscript && bracket->isEmpty();
    if (bracket != nullptr) {
        isKnown && !isFormatted ? bracket->readConstant() : bracket->readOther();
    }
    import_.readOther();
    operand_ = {{}, begin, isKnown && !isFormatted ? Operand::Form::plain : Operand::Form::code};
    if (isKnown) {
        operand_.standIn = isBytes ? u"b''" : u"''";
    }
    tail_ = Tail::operand;
}

// A backslash keeps a quote from closing in raw strings too.
void Scanner::readContent() {
    const std::array<char16_t, 3> three = {quote_, quote_, quote_};
    const std::u16string_view closing(three.data(), isTriple_ ? three.size() : 1);
    while (position_ < text_.size()) {
        if (text_.substr(position_, closing.size()) == closing) {
            position_ += closing.size();
            return;
        }
        if (!isTriple_ && isLineEnd(text_[position_])) {
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
    return tail_ == Tail::name && operand_.form == Operand::Form::names && !isDefined;
}

void Scanner::readOpening(char16_t bracket) {
    using Role = OpenBracket::Role;
    const bool isTooDeep = brackets_.size() == deepestBracket;
    if (OpenBracket* outer = innermost()) {
        isTooDeep ? outer->readOther() : outer->readOpening();
    }
    import_.readOpening(bracket, tail_ == Tail::name);
    const bool hasOperand = tail_ == Tail::name || tail_ == Tail::operand;
    if (isTooDeep) {
        ++deeperBrackets_;
    } else if (bracket == u'[' && hasOperand) {
        brackets_.emplace_back(bracket, Role::subscript, std::exchange(operand_, {}), position_);
    } else if (bracket == u'(' && isCallee()) {
        brackets_.emplace_back(bracket, Role::call, std::exchange(operand_, {}), position_);
    } else {
        const bool isCall = bracket == u'(' && hasOperand;
        const Operand before{{}, operand_.begin, isCall ? Operand::Form::code : Operand::Form::names};
        brackets_.emplace_back(bracket, Role::other, before, position_);
    }
    tail_ = Tail::nothing;
    ++position_;
}

/// After a closing bracket stands the value of the bracket.
void Scanner::readClosing(char16_t bracket) {
    if (innermost() != nullptr && innermost()->isClosedBy(bracket)) {
        if (brackets_.size() > 1) {
            brackets_[brackets_.size() - 2].readClosing(brackets_.back());
        }
        operand_ = innermost()->close();
    } else {
        operand_ = {{}, position_, Operand::Form::code};
    }
    tail_ = Tail::operand;
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
