#include "frontends/completion/open_bracket.h"

namespace contextdata::completion {

namespace {

bool isConstantName(std::u16string_view name) { return name == u"True" || name == u"False" || name == u"None"; }

}  // namespace

void OpenBracket::readAny(bool isConstant) {
    isEmpty_ = false;
    isConstant_ = isConstant_ && isConstant;
    argument_ = Argument::other;
}

void OpenBracket::readName(std::u16string_view name) {
    const bool isFirst = argument_ == Argument::nothing;
    readAny(isConstantName(name));
    if (name == u"lambda") {
        ++openLambdas_;
    } else if (isFirst) {
        argument_ = Argument::name;
        name_ = name;
    }
}

void OpenBracket::readConstant() { readAny(true); }

void OpenBracket::readMark(char16_t mark) {
    const bool isFirst = argument_ == Argument::nothing;
    readAny(mark == u'-' || mark == u':');
    if (mark == u':' && openLambdas_ > 0) {
        --openLambdas_;
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

void OpenBracket::readOther() { readAny(false); }

}  // namespace contextdata::completion
