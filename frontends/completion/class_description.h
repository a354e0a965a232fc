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

struct DescribedMember {
    std::u16string name;
    std::int32_t access = 0;       ///< the code of calling or reading
    std::u16string definingClass;  ///< full, without package qualification
};

struct DescribedProperty : DescribedMember {
    std::int32_t writeAccess = 0;
    std::u16string typeName;  ///< empty when no type is declared
    std::vector<std::u16string> sizes;
    std::vector<std::u16string> validators;
    std::vector<std::u16string> values;  ///< the only admissible ones; empty when others are admitted
    bool isReadOnly = false;
    bool hasCustomGetter = false;
    bool isStored = true;
};

/// A plain value. Within a group a name stands once.
struct ClassDescription {
    std::u16string name;  ///< full, without package qualification; empty for an unknown class
    std::vector<Superclass> superclasses;
    ZELKContextData::AttributeInfo attributes;
    std::vector<DescribedMember> enumerationMembers;  ///< in the class's order; all other groups are sorted by name
    std::vector<DescribedProperty> constants;
    std::vector<DescribedProperty> properties;
    std::vector<DescribedMember> staticMethods;
    std::vector<DescribedMember> methods;
};

}  // namespace contextdata::completion
