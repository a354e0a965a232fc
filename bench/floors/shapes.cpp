#include "bench/floors/shapes.h"

#include <algorithm>

namespace bench {

namespace {

using memory_host::ClassBuilder;
using memory_host::World;

constexpr std::size_t membersOfASmallClass = 10;

bool isRejected(std::size_t number) { return number % 10 == 9; }

bool isConstant(std::size_t number) { return number % 5 == 1; }

PlainMember plainMember(const std::string& name, std::size_t number) {
    PlainMember member;
    member.name = zelk::internal::makeInterned(name);
    member.isStatic = number % 4 == 3;
    member.listable = !isRejected(number);
    return member;
}

/// Names of the length that people give to members: 12 to 24 letters.
std::string memberName(const std::string& stem, std::size_t number) {
    std::string name = stem + std::to_string(number);
    name.resize(std::max<std::size_t>(name.size(), 12 + number % 13), 'x');
    return name;
}

PlainClass addMembers(ClassBuilder cls, const std::string& className, std::size_t members) {
    PlainClass plain;
    plain.constructorName = zelk::internal::makeInterned(className.substr(className.rfind('.') + 1));
    for (std::size_t number = 0; number < members; ++number) {
        const std::string tail = "Of" + className.substr(className.rfind('.') + 1) + "_";
        const PlainMember method = plainMember(memberName("method" + tail, number), number);
        cls.method(method.name.view()).isStatic(method.isStatic);
        if (!method.listable) {
            cls.unlistable();
        }
        plain.methods.push_back(method);

        PlainMember property = plainMember(memberName("property" + tail, number), number);
        property.setAccess = isConstant(number) ? zelk::constantSetAccess : zelk::publicAccess;
        isConstant(number) ? cls.constant(property.name.view()) : cls.property(property.name.view());
        if (!property.listable) {
            cls.unlistable();
        }
        plain.properties.push_back(property);

        const PlainMember choice = plainMember(memberName("choice" + tail, number), number);
        cls.enumerationMember(choice.name.view());
        if (!choice.listable) {
            cls.hiddenMember();
        }
        plain.enumerationMembers.push_back(choice);
    }
    return plain;
}

PlainClass makeClass(World& world, const std::string& name, std::size_t members) {
    return addMembers(world.cls(name), name, members);
}

}  // namespace

Shape flatClass(World& world, std::size_t members) {
    const std::string name = "flat" + std::to_string(members) + ".Flat";
    return {name, {makeClass(world, name, members)}};
}

Shape chainOfClasses(World& world, std::size_t depth) {
    const auto nameOf = [depth](std::size_t level) {
        return "chain" + std::to_string(depth) + ".Link" + std::to_string(level);
    };
    Shape shape{nameOf(0), {}};
    for (std::size_t level = 0; level < depth; ++level) {
        shape.lineage.push_back(makeClass(world, nameOf(level), membersOfASmallClass));
        if (level + 1 < depth) {
            world.cls(nameOf(level)).derives(nameOf(level + 1));
        }
    }
    return shape;
}

Shape stackedDiamonds(World& world, std::size_t stacked) {
    const auto nameOf = [stacked](const char* part, std::size_t level) {
        return "diamonds" + std::to_string(stacked) + "." + part + std::to_string(level);
    };
    Shape shape{nameOf("Top", 0), {}};
    std::vector<PlainClass> rightSides;
    for (std::size_t level = 0; level < stacked; ++level) {
        shape.lineage.push_back(makeClass(world, nameOf("Top", level), membersOfASmallClass));
        shape.lineage.push_back(makeClass(world, nameOf("Left", level), membersOfASmallClass));
        rightSides.push_back(makeClass(world, nameOf("Right", level), membersOfASmallClass));
        world.cls(nameOf("Top", level)).derives(nameOf("Left", level)).derives(nameOf("Right", level));
        world.cls(nameOf("Left", level)).derives(nameOf("Top", level + 1));
        world.cls(nameOf("Right", level)).derives(nameOf("Top", level + 1));
    }
    shape.lineage.push_back(makeClass(world, nameOf("Top", stacked), membersOfASmallClass));
    // The world's walk goes down the left sides first and comes to the right ones on its way back.
    shape.lineage.insert(shape.lineage.end(), rightSides.rbegin(), rightSides.rend());
    return shape;
}

}  // namespace bench
