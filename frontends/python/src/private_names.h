// How the compiler spells the private names of a class.
#pragma once

#include <string>
#include <string_view>

#include "frontends/completion/lineage.h"

namespace contextdata::python {

/// In the code of a class `Account`, `__name` means `_Account__name`; underscores in front of the class's own name play
/// no part. A class named by underscores alone has no such names.
class PrivateNames {
public:
    /// `className` is a full name; its last part counts.
    explicit PrivateNames(std::u16string_view className);

    /// Whether a name is one that the compiler makes of a private name of the class.
    bool holds(std::u16string_view name) const noexcept;

    /// What is typed in the code of the class to get to `name`, which the class `holds`.
    std::u16string asTyped(std::u16string_view name) const;

    /// Whether a name, typed in the code of the class, would be taken for another.
    bool isRespelled(std::u16string_view name) const noexcept;

private:
    std::u16string prefix_;  // "_Account"; empty when nothing is respelled
};

/// Whether a name is a private one of a class or of one that it derives from.
bool isPrivateToOneOf(const completion::Lineage& lineage, std::u16string_view name);

}  // namespace contextdata::python
