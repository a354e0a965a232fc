// A bracket that is open at some place of a text, and what stands before and in it.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace contextdata::completion {

/// A chain of names, perhaps with constant subscripts.
struct Operand {
    std::vector<std::u16string_view> chain;  ///< its names; what they say of a subscripted one is not the whole
    std::size_t begin = 0;                   ///< where it begins in the text
    bool isSubscripted = false;
};

class OpenBracket {
public:
    enum class Role {
        subscript,       ///< of a chain of names
        otherSubscript,  ///< of what has to be evaluated
        call,            ///< of a chain of names
        other,
    };

    OpenBracket(Role role, Operand before, std::size_t position)
        : role_(role), before_(std::move(before)), position_(position) {}

    Role role() const noexcept { return role_; }
    /// What the subscript or call is of; its text ends at `position`.
    const Operand& before() const noexcept { return before_; }
    Operand takeBefore() noexcept { return std::move(before_); }
    std::size_t position() const noexcept { return position_; }

    /// Whether nothing was read in it.
    bool isEmpty() const noexcept { return isEmpty_; }
    /// Whether it holds constants only, and at least one.
    bool holdsConstants() const noexcept { return isConstant_ && !isEmpty_; }

    /// What the argument that is being read has come to.
    enum class Argument { nothing, name, other };
    Argument argument() const noexcept { return argument_; }
    /// The names of the arguments that were given by name.
    const std::vector<std::u16string_view>& given() const noexcept { return given_; }
    /// How many arguments were given by position before the one that is being read, as far as can be told.
    std::size_t positions() const noexcept { return positions_; }

    // What is read in it, one after the other.

    void readName(std::u16string_view name);
    void readConstant();
    /// A sign, or a colon of a slice.
    void readMark(char16_t mark);
    void readComma();
    /// One that stands alone.
    void readEquals();
    void readOther();

private:
    void readAny(bool isConstant);

    Role role_;
    Operand before_;
    std::size_t position_;
    bool isEmpty_ = true;
    bool isConstant_ = true;
    Argument argument_ = Argument::nothing;
    bool isByName_ = false;
    bool isUnpacked_ = false;
    std::size_t openLambdas_ = 0;
    std::u16string_view name_;
    std::vector<std::u16string_view> given_;
    std::size_t positions_ = 0;
};

}  // namespace contextdata::completion
