#include "frontends/completion/import_statement.h"

namespace contextdata::completion {

void ImportStatement::beginAnew() noexcept {
    state_ = State::begin;
    afterComma_ = State::noImport;
    source_.clear();
}

bool ImportStatement::readWord(std::u16string_view word, const std::vector<std::u16string_view>& chainBefore) {
    const bool followsName = !chainBefore.empty();
    switch (state_) {
        case State::begin:
            state_ = word == u"import" ? State::modules : word == u"from" ? State::module : State::noImport;
            afterComma_ = state_ == State::modules ? State::modules : State::noImport;
            return state_ != State::noImport;
        case State::module:
            if (!followsName) {
                return false;
            }
            if (word != u"import") {
                readOther();
                return false;
            }
            state_ = afterComma_ = State::names;
            source_ = chainBefore;
            return true;
        case State::modules:
        case State::names:
            if (followsName) {
                state_ = word == u"as" ? State::otherName : State::noImport;
            }
            return followsName;
        case State::otherName:
        case State::noImport:
            break;
    }
    return false;
}

void ImportStatement::readComma() noexcept { state_ = afterComma_; }

void ImportStatement::readOpening(char16_t bracket, bool followsName) noexcept {
    if (state_ != State::names || bracket != u'(' || followsName) {
        readOther();
        afterComma_ = State::noImport;
    }
}

}  // namespace contextdata::completion
