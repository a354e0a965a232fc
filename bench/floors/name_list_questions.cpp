// The names that may follow a class and a dot, by the identity of the class and by its name.
#include <array>
#include <memory>

#include "bench/floors/floor.h"
#include "bench/floors/host_floor.h"
#include "bench/floors/questions.h"
#include "contextdata/class_member_names.h"
#include "host/class_system.h"
#include "host/i18n.h"

namespace bench {

using namespace ZELKContextData;

namespace {

using ByIdentity = bool (*)(const ResolvedClassID& cls, Names& names, bool& flag);
using ByName = bool (*)(const std::u16string& cls, Names& names, bool& flag);

struct Listing {
    const char* name;
    ByIdentity byIdentity;
    ByName byName;
    Names (*floor)(const Shape&);
    Names (*hostFloor)(zelk::COSInternedID);
    std::size_t (*members)(const PlainClass&);
};

std::size_t methods(const PlainClass& cls) { return cls.methods.size(); }
std::size_t properties(const PlainClass& cls) { return cls.properties.size(); }
std::size_t choices(const PlainClass& cls) { return cls.enumerationMembers.size(); }

constexpr std::array listings = {
    Listing{"methods", getClassMethodNames, getClassMethodNames, floorMethodNames, hostFloorMethodNames, methods},
    Listing{"static methods", getClassStaticMethodNames, getClassStaticMethodNames, floorStaticMethodNames,
            hostFloorStaticMethodNames, methods},
    Listing{"properties", getClassPropertyNames, getClassPropertyNames, floorPropertyNames, hostFloorPropertyNames,
            properties},
    Listing{"constants", getClassConstantPropertyNames, getClassConstantPropertyNames, floorConstantNames,
            hostFloorConstantNames, properties},
    Listing{"enumeration members", getClassEnumerationNames, getClassEnumerationNames, floorEnumerationNames,
            hostFloorEnumerationNames, choices},
};

template <class List, class Class>
Names listed(List list, const Class& cls) {
    Names names;
    bool flag = false;
    list(cls, names, flag);
    return names;
}

/// Finds the class of a name, which the list by hand does not need, as whoever has only the name must.
bool isClass(const std::u16string& name) {
    const std::string narrow = fl::i18n::to_string(name, fl::i18n::codecvt_ustring_to_ascii(false));
    zelk::COSClass* cls = zelk::COSClass::getClass(zelk::internal::makeInterned(narrow));
    return cls != nullptr && cls->getDefinition(false) != nullptr && !cls->getID().isEmpty();
}

Question byIdentity(const Listing& listing, const std::string& name, const std::shared_ptr<Shape>& shape) {
    std::size_t members = 0;
    for (const PlainClass& cls : shape->lineage) {
        members += listing.members(cls);
    }
    const ResolvedClassID id = ResolvedClassID::fromKnownResolvedClassID(shape->className);
    return question(
        "name lists", listing.name + (" of " + name), members,
        [list = listing.byIdentity, id] { return listed(list, id); },
        [floor = listing.floor, shape] { return floor(*shape); });
}

Question byIdentityOverHost(const Listing& listing, const std::string& name, const std::shared_ptr<Shape>& shape) {
    const ResolvedClassID id = ResolvedClassID::fromKnownResolvedClassID(shape->className);
    return question(
        "name lists over the host's walk", listing.name + (" of " + name), listing.members(shape->lineage.front()),
        [list = listing.byIdentity, id] { return listed(list, id); },
        [floor = listing.hostFloor, id] { return floor(id.get()); });
}

Question byName(const Listing& listing, const std::string& name, const std::shared_ptr<Shape>& shape) {
    const std::u16string cls = fl::i18n::to_ustring(shape->className);
    return question(
        "name lists by name", listing.name + (" of " + name), listing.members(shape->lineage.front()),
        [list = listing.byName, cls] { return listed(list, cls); },
        [floor = listing.floor, cls, shape] { return isClass(cls) ? floor(*shape) : Names(); });
}

}  // namespace

std::vector<Question> nameListQuestions(memory_host::World& world) {
    std::vector<Question> questions;
    for (const std::size_t members : {10U, 100U, 1'000U, 10'000U, 100'000U}) {
        const auto shape = std::make_shared<Shape>(flatClass(world, members));
        for (const Listing& listing : listings) {
            questions.push_back(byIdentity(listing, "a class of " + std::to_string(members), shape));
            questions.push_back(byIdentityOverHost(listing, "a class of " + std::to_string(members), shape));
            if (members <= 1'000) {
                questions.push_back(byName(listing, "a class of " + std::to_string(members), shape));
            }
        }
    }
    const auto chain = std::make_shared<Shape>(chainOfClasses(world, 50));
    const auto diamonds = std::make_shared<Shape>(stackedDiamonds(world, 12));
    for (const Listing& listing : listings) {
        if (listing.members != choices) {  // those are the class's own
            questions.push_back(byIdentity(listing, "a chain of 50 classes", chain));
            questions.push_back(byIdentity(listing, "12 diamonds", diamonds));
        }
    }
    return questions;
}

}  // namespace bench
