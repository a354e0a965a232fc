// What the end of a text makes of what was read before.
#include <utility>

#include "frontends/completion/characters.h"
#include "frontends/completion/scanner.h"

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
    }
    return parsed;
}

Refusal Scanner::refusal() const {
    if (stop_ != Refusal::none) {
        return stop_;
    }
    switch (tail_) {
        case Tail::nameDot:
            return operand_.isSubscripted ? Refusal::needsEvaluation : Refusal::none;
        case Tail::name:
            if (operand_.isSubscripted) {
                return Refusal::needsEvaluation;
            }
            return operand_.chain.size() > 1 && endsInFragment() ? Refusal::none : Refusal::noDot;
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
        case Tail::subscript:
            break;
    }
    return Refusal::noDot;
}

/// Whether a name is being typed.
bool Scanner::endsInFragment() const { return tail_ == Tail::name && !isBlank(text_.back()); }

void Scanner::takeFragment(ParsedText& parsed, std::u16string_view fragment) const {
    parsed.fragment = fragment;
    parsed.end = text_.size();
    parsed.start = text_.size() - fragment.size();
}

void Scanner::takeValueOf(ParsedText& parsed, const Operand& operand, std::size_t end) const {
    if (!operand.isSubscripted) {
        parsed.chain = operand.chain;
        return;
    }
    parsed.expression = text_.substr(operand.begin, end - operand.begin);
    while (isBlank(parsed.expression.back())) {
        parsed.expression.remove_suffix(1);
    }
}

void Scanner::wantInString(ParsedText& parsed) {
    if (!isPlainString_ || deeperBrackets_ > 0) {
        return;
    }
    const OpenBracket* bracket = innermost();
    const bool isSubscript = bracket != nullptr && bracket->role() == OpenBracket::Role::subscript;
    const bool isOtherSubscript = bracket != nullptr && bracket->role() == OpenBracket::Role::otherSubscript;
    if (isOtherSubscript || (isSubscript && !isWholeKey_)) {
        return;
    }
    takeFragment(parsed, text_.substr(contentBegin_));
    parsed.quote = quote_;
    parsed.wanted = isSubscript ? Wanted::keys : Wanted::files;
    if (isSubscript) {
        takeValueOf(parsed, bracket->before(), bracket->position());
    }
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
    if (state == State::otherName || !(isName || beginsName || (tail_ == Tail::nameDot && mayBeDotted))) {
        parsed.refusal = parsed.refusal == Refusal::none ? Refusal::noDot : parsed.refusal;
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
    const bool isMember = tail_ == Tail::nameDot || (operand_.chain.size() > 1 && endsInFragment());
    if (!isMember) {
        return;
    }
    if (tail_ == Tail::name) {
        takeFragment(parsed, operand_.chain.back());
        operand_.chain.pop_back();
    }
    parsed.wanted = operand_.isSubscripted ? Wanted::membersOfExpression : Wanted::members;
    takeValueOf(parsed, operand_, dotPosition_);
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

}  // namespace contextdata::completion
