// A bracket that is open at some place of a text, and what stands before and in it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace contextdata::completion {

/// What a value is written as, up to some place of the text.
struct Operand {
    enum class Form : std::uint8_t {
        names,  ///< a chain of names
        plain,  ///< names, literals, and subscripts that are constants: nothing that would have to run
        code,   ///< anything else
    };

    std::vector<std::u16string_view> chain;  ///< its names; what they say of another form is not the whole
    std::size_t begin = 0;                   ///< where it begins in the text
    Form form = Form::names;
    /// A plain text with a value of the same type, for what ends here; empty when the type cannot be told so.
    std::u16string_view standIn = {};
};

class OpenBracket {
public:
    enum class Role {
        subscript,
        call,   ///< of a chain of names
        other,  ///< one that begins a value, or a call of anything else
    };

    OpenBracket(char16_t bracket, Role role, Operand before, std::size_t position)
        : bracket_(bracket), role_(role), before_(std::move(before)), position_(position) {}

    Role role() const noexcept { return role_; }
    /// What the subscript or call is of; its text ends at `position`.
    const Operand& before() const noexcept { return before_; }
    std::size_t position() const noexcept { return position_; }

    /// Whether nothing was read in it.
    bool isEmpty() const noexcept { return isEmpty_; }
    /// Whether it holds constants only, if anything.
    bool isConstant() const noexcept { return isConstant_; }

    bool isClosedBy(char16_t closing) const noexcept;
    /// The value that its closing bracket ends. Gives away what stood before.
    Operand close();

    /// What the argument that is being read has come to.
    enum class Argument { nothing, name, other };
    Argument argument() const noexcept { return argument_; }
    /// The names of the arguments that were given by name.
    const std::vector<std::u16string_view>& given() const noexcept { return given_; }
    /// How many arguments were given by position before the one that is being read, as far as can be told.
    std::size_t positions() const noexcept { return positions_; }

    // What is read in it, one after the other.

    /// A name that begins a chain.
    void readName(std::u16string_view name);
    void readConstant();
    /// A dot, or a name behind one.
    void readMember();
    /// A sign, or a colon.
    void readMark(char16_t mark);
    void readComma();
    /// One that stands alone.
    void readEquals();
    /// A bracket in it, when it opens and when it closes.
    void readOpening();
    void readClosing(const OpenBracket& inner);
    /// Anything that would have to run.
    void readOther();

private:
    void readAny(Operand::Form form, bool isConstant);
    bool isPlainValue() const noexcept;
    std::u16string_view displayStandIn() const noexcept;

    char16_t bracket_;
    Role role_;
    Operand before_;
    std::size_t position_;
    bool isEmpty_ = true;
    bool isConstant_ = true;
    bool isPlain_ = true;
    bool hasComma_ = false;
    bool hasColon_ = false;
    Argument argument_ = Argument::nothing;
    bool isByName_ = false;
    bool isUnpacked_ = false;
    std::size_t openLambdas_ = 0;
    std::u16string_view name_;
    std::vector<std::u16string_view> given_;
    std::size_t positions_ = 0;
};

}  // namespace contextdata::completion
