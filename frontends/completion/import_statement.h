// How far a statement that imports has been read.
#pragma once

#include <string_view>
#include <vector>

namespace contextdata::completion {

class ImportStatement {
public:
    enum class State {
        begin,      ///< nothing of a statement was read
        modules,    ///< behind `import`: names of modules
        module,     ///< behind `from`: the name of one module
        names,      ///< behind `from ... import`: what to take from it
        otherName,  ///< behind `as`: a name that somebody makes up
        noImport,   ///< in another statement, or in a faulty one
    };

    State state() const noexcept { return state_; }

    /// The module of a statement that takes names from one.
    const std::vector<std::u16string_view>& source() const noexcept { return source_; }

    void beginAnew() noexcept;

    /// A word that no dot ties to the chain of names before it, which is empty when none stands directly before.
    /// Answers whether the word is one that the statement is made of rather than a name.
    bool readWord(std::u16string_view word, const std::vector<std::u16string_view>& chainBefore);

    void readComma() noexcept;

    /// An opening bracket directly behind the chain, or not.
    void readOpening(char16_t bracket, bool followsName) noexcept;

    /// Anything that has no place in such a statement.
    void readOther() noexcept { state_ = State::noImport; }

private:
    State state_ = State::begin;
    State afterComma_ = State::noImport;
    std::vector<std::u16string_view> source_;
};

}  // namespace contextdata::completion
