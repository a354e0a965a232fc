// A first look at names, before anything dearer is asked about them.
#pragma once

#include <string_view>

namespace python_host {

/// Which names are of interest: those that begin with a letter of ASCII in either case, or all.
class Initial {
public:
    /// Every name.
    constexpr Initial() noexcept = default;

    /// The names that could begin, in whatever case, with what was typed; every name when that begins with no ASCII.
    explicit constexpr Initial(std::string_view typed) noexcept
        : letter_(typed.empty() || !isAscii(typed.front()) ? '\0' : small(typed.front())) {}

    constexpr bool begins(std::string_view name) const noexcept {
        return letter_ == '\0' || (!name.empty() && small(name.front()) == letter_);
    }

private:
    static constexpr bool isAscii(char unit) noexcept { return static_cast<unsigned char>(unit) < 0x80; }
    static constexpr char small(char unit) noexcept {
        return unit >= 'A' && unit <= 'Z' ? static_cast<char>(unit - 'A' + 'a') : unit;
    }

    char letter_ = '\0';
};

}  // namespace python_host
