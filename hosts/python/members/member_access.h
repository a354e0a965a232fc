// Who may use a member, by the custom of the language: the name tells.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "host/class_system.h"

namespace python_host {

/// Access of `_name`: for the class that declares the member and those that derive from it.
inline constexpr std::int32_t protectedAccess = 1;

/// The access codes of the members that stand in the dictionary of one class.
class MemberAccess {
public:
    /// `className` is the full name of the class, with or without the qualification of a name that is not its alone.
    explicit MemberAccess(std::string_view className);

    /// The last part of the class's name.
    std::string_view shortName() const noexcept { return shortName_; }

    /// `__name` is private. The compiler spells it `_Class__name`, where the class's name has lost the underscores in
    /// front; what is spelled with the name of another class is not this class's secret, but internal all the same.
    std::int32_t of(std::string_view name) const noexcept;

    /// A name as the author wrote it: a private one without what the compiler put in front.
    std::string_view asWritten(std::string_view name) const noexcept {
        return isMangled(name) ? name.substr(mangling_.size()) : name;
    }

private:
    bool isMangled(std::string_view name) const noexcept;

    std::string shortName_;
    std::string mangling_;  ///< what the compiler writes in front of private names; empty when it does not
};

}  // namespace python_host
