// The classes that benchmarks list, twice: in a world for the library, and as plain data for the floor.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "host/interned.h"
#include "hosts/memory/world.h"

namespace bench {

/// A member as plain data.
struct PlainMember {
    zelk::COSInternedID name;
    bool isStatic = false;
    bool listable = true;
    std::int32_t getAccess = 0;
    std::int32_t setAccess = 0;
};

/// One class of a lineage as plain data.
struct PlainClass {
    zelk::COSInternedID constructorName;
    std::vector<PlainMember> methods;
    std::vector<PlainMember> properties;
    std::vector<PlainMember> enumerationMembers;
};

/// A class in a world, and its lineage in the order of the world's walk.
struct Shape {
    std::string className;
    std::vector<PlainClass> lineage;
};

/// One class of `members` methods, as many properties and as many enumeration members; one in ten of each is not
/// to be listed, and one property in five is a constant.
Shape flatClass(memory_host::World& world, std::size_t members);

/// A class at the end of a chain of `depth` classes of ten methods and ten properties each.
Shape chainOfClasses(memory_host::World& world, std::size_t depth);

/// A class on top of `stacked` diamonds, each class of ten methods and ten properties.
Shape stackedDiamonds(memory_host::World& world, std::size_t stacked);

}  // namespace bench
