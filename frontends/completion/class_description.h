// All that is known about a class, for people to read.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "contextdata/attribute_info.h"
#include "frontends/completion/superclass_tree.h"

namespace contextdata::completion {

/// "public", "protected" or "private"; any other access code as a number.
std::string textOfAccess(std::int32_t code);

/// What is known of every member. A plain value.
struct DescribedMember {
    std::u16string name;           ///< without its class
    std::int32_t access = 0;       ///< the code of calling or reading
    std::u16string definingClass;  ///< full, without package qualification
};

/// What is known of a property besides; for the parts of a declaration, as its author wrote them. A plain value.
struct DescribedProperty : DescribedMember {
    std::int32_t writeAccess = 0;            ///< the code of assigning
    std::u16string typeName;                 ///< empty when no type is declared
    std::vector<std::u16string> sizes;       ///< one text a dimension; empty when none is declared
    std::vector<std::u16string> validators;  ///< the functions that check a value, by their names
    std::vector<std::u16string> values;      ///< the only admissible ones; empty when others are admitted
    bool isReadOnly = false;                 ///< nobody can assign it
    bool hasCustomGetter = false;            ///< reading it runs code of its author, or may do so
    bool isStored = true;                    ///< objects hold a value of it; true when that is not known
};

/// A plain value. Within a group a name stands once.
struct ClassDescription {
    std::u16string name;                        ///< full, without package qualification; empty for an unknown class
    std::vector<Superclass> superclasses;       ///< the direct ones, each with its own
    ZELKContextData::AttributeInfo attributes;  ///< those that may be written where the class is declared
    std::vector<DescribedMember> enumerationMembers;  ///< in the class's order; all other groups are sorted by name
    std::vector<DescribedProperty> constants;         ///< properties that are never assigned
    std::vector<DescribedProperty> properties;        ///< all others
    std::vector<DescribedMember> staticMethods;       ///< called on the class
    std::vector<DescribedMember> methods;             ///< called on its objects
};

}  // namespace contextdata::completion
