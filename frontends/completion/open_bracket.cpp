#include "frontends/completion/open_bracket.h"

#include <utility>

#include "frontends/completion/words.h"

namespace contextdata::completion {

using Form = Operand::Form;

void OpenBracket::readAny(Form form, bool isConstant) {
    isEmpty_ = false;
    isConstant_ = isConstant_ && isConstant;
    isPlain_ = isPlain_ && form != Form::code;
    argument_ = Argument::other;
}

void OpenBracket::readName(std::u16string_view name) {
    const bool isFirst = argument_ == Argument::nothing;
    readAny(beginsOperand(name) ? Form::code : Form::plain, isConstantName(name));
    if (name == u"lambda") {
        ++openLambdas_;
    } else if (isFirst) {
        argument_ = Argument::name;
        name_ = name;
    }
}

void OpenBracket::readConstant() { readAny(Form::plain, true); }

void OpenBracket::readMember() { readAny(Form::plain, false); }

void OpenBracket::readMark(char16_t mark) {
    const bool isFirst = argument_ == Argument::nothing;
    const bool isPlain = mark == u'-' || mark == u':';
    readAny(isPlain ? Form::plain : Form::code, isPlain);
    if (mark == u':' && openLambdas_ > 0) {
        --openLambdas_;
    } else if (mark == u':') {
        hasColon_ = true;
    }
    // How many arguments an unpacked one stands for is known when the call runs.
    isUnpacked_ = isUnpacked_ || (isFirst && mark == u'*');
}

void OpenBracket::readComma() {
    isEmpty_ = false;
    if (openLambdas_ > 0) {
        return;
    }
    if (argument_ != Argument::nothing && !isByName_ && !isUnpacked_) {
        ++positions_;
    }
    hasComma_ = true;
    argument_ = Argument::nothing;
    isByName_ = false;
}

void OpenBracket::readEquals() {
    if (argument_ == Argument::name) {
        given_.push_back(name_);
        isByName_ = true;
    }
    readOther();
}

void OpenBracket::readOpening() { readAny(Form::plain, true); }

/// Whether what the bracket ends is plain.
bool OpenBracket::isPlainValue() const noexcept {
    if (role_ == Role::call || before_.form == Form::code) {
        return false;
    }
    return role_ == Role::subscript ? isConstant_ && !isEmpty_ : isPlain_;
}

/// What a bracket in a subscript leads to is no constant, save for tuples.
void OpenBracket::readClosing(const OpenBracket& inner) {
    const bool isTuple = inner.role_ == Role::other && inner.bracket_ == u'(';
    isConstant_ = isConstant_ && isTuple && inner.isConstant_ && inner.isPlainValue();
    isPlain_ = isPlain_ && inner.isPlainValue();
}

void OpenBracket::readOther() { readAny(Form::code, false); }

/// What stands in a display is of no interest to those who ask for its type.
std::u16string_view OpenBracket::displayStandIn() const noexcept {
    switch (bracket_) {
        case u'[':
            return u"[]";
        case u'{':
            return isEmpty_ || hasColon_ ? u"{}" : u"";
        default:
            return isEmpty_ || hasComma_ ? u"()" : u"";
    }
}

bool OpenBracket::isClosedBy(char16_t closing) const noexcept {
    return closing == (bracket_ == u'(' ? u')' : bracket_ == u'[' ? u']' : u'}');
}

Operand OpenBracket::close() {
    const Form form = isPlainValue() ? Form::plain : Form::code;
    if (role_ == Role::subscript) {
        Operand element = std::move(before_);
        element.form = form;
        element.standIn = {};
        return element;
    }
    const bool isCall = role_ == Role::call || before_.form == Form::code;
    return isCall ? Operand{{}, before_.begin, form} : Operand{{}, position_, form, displayStandIn()};
}

}  // namespace contextdata::completion
