#include "bench/floors/floor.h"

#include <unordered_set>
#include <utility>

#include "host/i18n.h"

namespace bench {

namespace {

using Names = std::vector<std::u16string>;

constexpr fl::i18n::codecvt_ascii_to_ustring widening(false);

Names methodNames(const Shape& shape, bool staticOnly) {
    Names names;
    names.reserve(32);
    // Interned names: the same text is the same address, so the address is all that needs remembering.
    std::unordered_set<const char*> seen;
    for (const PlainClass& cls : shape.lineage) {
        for (const PlainMember& method : cls.methods) {
            if (method.name == cls.constructorName) {
                continue;
            }
            std::u16string name = fl::i18n::to_ustring(method.name.c_str(), widening);
            const bool firstSeen = seen.insert(method.name.c_str()).second;
            const bool accepted = method.listable && method.getAccess == 0 && (!staticOnly || method.isStatic);
            if (firstSeen && accepted) {
                names.push_back(std::move(name));
            }
        }
    }
    return names;
}

bool isWanted(const PlainMember& property, bool constantOnly) {
    const bool isConstant = property.setAccess == zelk::constantSetAccess;
    return property.listable && (property.getAccess == 0 || property.setAccess == 0) && (!constantOnly || isConstant);
}

Names propertyNames(const Shape& shape, bool constantOnly) {
    Names names;
    for (const PlainClass& cls : shape.lineage) {
        for (const PlainMember& property : cls.properties) {
            if (isWanted(property, constantOnly)) {
                names.push_back(fl::i18n::to_ustring(property.name.c_str(), widening));
            }
        }
    }
    return names;
}

}  // namespace

Names floorMethodNames(const Shape& shape) { return methodNames(shape, false); }

Names floorStaticMethodNames(const Shape& shape) { return methodNames(shape, true); }

Names floorPropertyNames(const Shape& shape) { return propertyNames(shape, false); }

Names floorConstantNames(const Shape& shape) { return propertyNames(shape, true); }

Names floorEnumerationNames(const Shape& shape) {
    Names names;
    for (const PlainMember& member : shape.lineage.front().enumerationMembers) {
        if (member.listable) {
            names.push_back(fl::i18n::to_ustring(member.name.c_str(), widening));
        }
    }
    return names;
}

}  // namespace bench
