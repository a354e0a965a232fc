// What the end of a text makes of what was read before.
#include <algorithm>
#include <utility>

#include "frontends/completion/characters.h"
#include "frontends/completion/scanner.h"
#include "frontends/completion/words.h"

namespace contextdata::completion {

ParsedText Scanner::result() {
    ParsedText parsed;
    parsed.refusal = refusal();
    takeFragment(parsed, text_.substr(text_.size()));
    if (stop_ == Refusal::insideString) {
        wantInString(parsed);
    } else if (stop_ == Refusal::none && !wantImport(parsed)) {
        wantMembers(parsed);
        wantArgument(parsed);
        wantName(parsed);
        wantWholeKey(parsed);
    }
    return parsed;
}

Refusal Scanner::refusal() const {
    if (stop_ != Refusal::none) {
        return stop_;
    }
    switch (tail_) {
        case Tail::dot:
            return operand_.form == Operand::Form::names ? Refusal::none : Refusal::needsEvaluation;
        case Tail::name:
            if (operand_.form != Operand::Form::names) {
                return Refusal::needsEvaluation;
            }
            return operand_.chain.size() > 1 && endsInFragment() ? Refusal::none : Refusal::noName;
        case Tail::number:
        case Tail::numberDot:
            return Refusal::afterNumber;
        case Tail::dangling:
            return Refusal::danglingDot;
        case Tail::nothing:
        case Tail::keyword:
        case Tail::operand:
            break;
    }
    return Refusal::noName;
}

/// Whether a name is being typed.
bool Scanner::endsInFragment() const { return tail_ == Tail::name && !isBlank(text_.back()); }

/// Whether a name is being typed that no dot stands before.
bool Scanner::endsInPlainName() const {
    return endsInFragment() && operand_.form == Operand::Form::names && operand_.chain.size() == 1;
}

void Scanner::takeFragment(ParsedText& parsed, std::u16string_view fragment) const {
    parsed.fragment = fragment;
    parsed.end = text_.size();
    parsed.start = text_.size() - fragment.size();
}

void Scanner::takeValueOf(ParsedText& parsed, const Operand& operand, std::size_t end) const {
    if (operand.form == Operand::Form::names) {
        parsed.chain = operand.chain;
        return;
    }
    parsed.expression = text_.substr(operand.begin, end - operand.begin);
    while (isBlank(parsed.expression.back())) {
        parsed.expression.remove_suffix(1);
    }
    parsed.runsCode = operand.form == Operand::Form::code;
}

void Scanner::takeKeysOf(ParsedText& parsed, const OpenBracket& subscript) const {
    takeValueOf(parsed, subscript.before(), subscript.position());
    std::size_t begin = subscript.position() + 1;
    while (begin < text_.size() && isBlank(text_[begin])) {
        ++begin;
    }
    parsed.wholeKey = text_.substr(begin);
}

void Scanner::wantInString(ParsedText& parsed) {
    const OpenBracket* bracket = innermost();
    const bool isSubscript = bracket != nullptr && bracket->role() == OpenBracket::Role::subscript;
    const bool isPlain = prefix_.empty() && !isTriple_ && deeperBrackets_ == 0;
    if (!isPlain || (isSubscript && !isWholeKey_) || (!isSubscript && subscriptOfKey() != nullptr)) {
        wantWholeKey(parsed);
        return;
    }
    takeFragment(parsed, text_.substr(contentBegin_));
    parsed.quote = quote_;
    parsed.wanted = isSubscript ? Wanted::keys : Wanted::files;
    if (isSubscript) {
        takeKeysOf(parsed, *bracket);
    }
}

/// The subscript that the cursor stands in when constants are all that was typed in it, a bracket around them included.
const OpenBracket* Scanner::subscriptOfKey() const {
    if (brackets_.empty() || deeperBrackets_ > 0) {
        return nullptr;
    }
    const OpenBracket* bracket = &brackets_.back();
    if (bracket->role() == OpenBracket::Role::other && bracket->isConstant() && brackets_.size() > 1) {
        const OpenBracket* outer = &brackets_[brackets_.size() - 2];
        const std::u16string_view between =
            text_.substr(outer->position() + 1, bracket->position() - outer->position() - 1);
        bracket = std::all_of(between.begin(), between.end(), isBlank) ? outer : bracket;
    }
    const bool isKey = bracket->role() == OpenBracket::Role::subscript && bracket->isConstant();
    return isKey ? bracket : nullptr;
}

/// Where a constant may begin or go on that no string at the cursor can be taken for.
void Scanner::wantWholeKey(ParsedText& parsed) {
    const OpenBracket* subscript = subscriptOfKey();
    const bool isInString = stop_ == Refusal::insideString && !isTriple_;
    if (parsed.wanted != Wanted::nothing || subscript == nullptr || !(isInString || tail_ == Tail::nothing)) {
        return;
    }
    takeKeysOf(parsed, *subscript);
    takeFragment(parsed, parsed.wholeKey);
    parsed.wanted = Wanted::wholeKeys;
}

/// Answers whether the cursor stands where a statement imports something.
bool Scanner::wantImport(ParsedText& parsed) {
    using State = ImportStatement::State;
    const State state = import_.state();
    if (state == State::begin || state == State::noImport) {
        return false;
    }
    const bool isName = endsInFragment();
    const bool isAfterWord = !text_.empty() && isNameUnit(text_.back());
    const bool beginsName = tail_ == Tail::nothing && !isAfterWord;
    const bool mayBeDotted = state == State::modules || state == State::module;
    if (state == State::otherName || !(isName || beginsName || (tail_ == Tail::dot && mayBeDotted))) {
        parsed.refusal = parsed.refusal == Refusal::none ? Refusal::noName : parsed.refusal;
        return true;
    }
    std::vector<std::u16string_view> chain = beginsName ? std::vector<std::u16string_view>() : operand_.chain;
    if (isName) {
        takeFragment(parsed, chain.back());
        chain.pop_back();
    }
    if (mayBeDotted) {
        parsed.wanted = Wanted::modules;
        parsed.chain = std::move(chain);
    } else if (chain.empty()) {
        parsed.wanted = Wanted::importedNames;
        parsed.chain = import_.source();
    }
    return true;
}

void Scanner::wantMembers(ParsedText& parsed) {
    if (tail_ != Tail::dot && (!endsInFragment() || endsInPlainName())) {
        return;
    }
    if (tail_ == Tail::name) {
        takeFragment(parsed, operand_.chain.back());
        operand_.chain.pop_back();
    }
    if (operand_.form == Operand::Form::names) {
        parsed.wanted = Wanted::members;
        parsed.chain = operand_.chain;
        return;
    }
    parsed.wanted = Wanted::membersOfExpression;
    if (operand_.standIn.empty() || !operand_.chain.empty()) {
        takeValueOf(parsed, operand_, dotPosition_);
    } else {
        parsed.expression = operand_.standIn;
    }
}

void Scanner::wantArgument(ParsedText& parsed) {
    const OpenBracket* bracket = innermost();
    if (parsed.wanted != Wanted::nothing || bracket == nullptr || bracket->role() != OpenBracket::Role::call) {
        return;
    }
    if (bracket->argument() == OpenBracket::Argument::name && endsInFragment()) {
        takeFragment(parsed, operand_.chain.back());
    } else if (bracket->argument() != OpenBracket::Argument::nothing) {
        return;
    }
    parsed.wanted = Wanted::arguments;
    parsed.chain = bracket->before().chain;
    parsed.given = bracket->given();
    parsed.positions = bracket->positions();
}

void Scanner::wantName(ParsedText& parsed) {
    if (parsed.wanted != Wanted::nothing || !endsInPlainName() || introducesName(wordBefore_)) {
        return;
    }
    takeFragment(parsed, operand_.chain.back());
    parsed.wanted = Wanted::names;
    parsed.refusal = Refusal::none;
}

}  // namespace contextdata::completion
