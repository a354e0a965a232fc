#include "host/class_system.h"

#include <string>
#include <vector>

#include "tests/conformance/suite/suite.h"

namespace {

using conformance::classNamed;
using conformance::ClassTrait;
using conformance::id;
using conformance::Names;
using ::testing::Contains;
using ::testing::Not;
using zelk::COSClass;

class ClassSystem : public conformance::Conformance {
protected:
    /// The names of the direct superclasses.
    static Names superclassesOf(COSClass& cls) {
        Names names;
        const zelk::COSIDIteratorPtr walk = cls.getSuperclasses();
        while (walk && walk->hasMoreElements()) {
            names.emplace_back(walk->nextElement().view());
        }
        return names;
    }
};

TEST_F(ClassSystem, KnowsNoClassByTheEmptyHandleOrAnUnknownName) {
    EXPECT_EQ(COSClass::getClass({}), nullptr);
    EXPECT_EQ(COSClass::getClass(id(conformance::unknownName)), nullptr);
    EXPECT_EQ(COSClass::getClass(id("no.such.package." + conformance::unknownName)), nullptr);
}

TEST_F(ClassSystem, FindsAClassByItsName) {
    const std::string name = provider().makeClass({"Account", {}, {}, {}});
    CONFORMANCE_NEEDS(!name.empty(), "classes");
    COSClass* cls = classNamed(name);
    ASSERT_NE(cls, nullptr);
    EXPECT_EQ(COSClass::getClass(id(name)), cls) << "the registry holds one object a class";
    EXPECT_EQ(cls->getID(), id(name));
    EXPECT_EQ(cls->getName(), id(name).c_str()) << "names are texts of the intern table";
    EXPECT_NE(cls->getDefinition(false), nullptr);
    EXPECT_FALSE(cls->isHidden());
    EXPECT_FALSE(cls->withholdsOwnMembers());
}

TEST_F(ClassSystem, FindsAClassByAnOlderFormOfItsName) {
    const auto names = provider().legacyName();
    CONFORMANCE_NEEDS(names, "older forms of class names");
    COSClass* cls = classNamed(names->first);
    ASSERT_NE(cls, nullptr);
    EXPECT_EQ(cls->getID(), id(names->second));
    EXPECT_EQ(cls, classNamed(names->second));
}

TEST_F(ClassSystem, DefinesNothingByAsking) {
    const std::string name = provider().classWith(ClassTrait::undefined);
    CONFORMANCE_NEEDS(!name.empty(), "classes without a definition");
    COSClass* cls = classNamed(name);
    ASSERT_NE(cls, nullptr);
    EXPECT_EQ(cls->getDefinition(false), nullptr);
    EXPECT_EQ(cls->getDefinition(false), nullptr);
}

TEST_F(ClassSystem, TellsHiddenClasses) {
    const std::string name = provider().classWith(ClassTrait::hidden);
    CONFORMANCE_NEEDS(!name.empty(), "hidden classes");
    EXPECT_TRUE(classNamed(name)->isHidden());
}

TEST_F(ClassSystem, TellsClassesThatWithholdTheirMembers) {
    const std::string name = provider().classWith(ClassTrait::withholding);
    CONFORMANCE_NEEDS(!name.empty(), "classes that withhold their members");
    EXPECT_TRUE(classNamed(name)->withholdsOwnMembers());
}

TEST_F(ClassSystem, TellsClassesWhoseObjectsHaveMoreProperties) {
    const std::string name = provider().classWith(ClassTrait::dynamicProperties);
    CONFORMANCE_NEEDS(!name.empty(), "classes with dynamic properties");
    EXPECT_TRUE(classNamed(name)->hasDynamicProperties());
}

TEST_F(ClassSystem, ShowsTheDirectSuperclassesInTheOrderOfTheirDeclaration) {
    const std::string root = provider().makeClass({"Root", {}, {}, {}});
    CONFORMANCE_NEEDS(!root.empty(), "classes");
    const std::string left = provider().makeClass({"Left", {root}, {}, {}});
    const std::string right = provider().makeClass({"Right", {root}, {}, {}});
    const std::string leaf = provider().makeClass({"Leaf", {right, left}, {}, {}});
    EXPECT_EQ(superclassesOf(*classNamed(leaf)), (Names{right, left}));
    EXPECT_EQ(superclassesOf(*classNamed(left)), Names{root});
    for (const std::string& superclass : superclassesOf(*classNamed(root))) {
        EXPECT_NE(classNamed(superclass), nullptr) << "each names a class object";
    }
}

TEST_F(ClassSystem, TellsWhoDerivesFromWhom) {
    const std::string root = provider().makeClass({"Root", {}, {}, {}});
    CONFORMANCE_NEEDS(!root.empty(), "classes");
    const std::string middle = provider().makeClass({"Middle", {root}, {}, {}});
    const std::string leaf = provider().makeClass({"Leaf", {middle}, {}, {}});
    const std::string stranger = provider().makeClass({"Stranger", {}, {}, {}});
    const COSClass& cls = *classNamed(leaf);
    EXPECT_TRUE(cls.isSubclassOf(id(middle)));
    EXPECT_TRUE(cls.isSubclassOf(id(root)));
    EXPECT_FALSE(cls.isSubclassOf(id(stranger)));
    EXPECT_FALSE(cls.isSubclassOf(id(conformance::unknownName)));
    EXPECT_FALSE(cls.isSubclassOf({}));
    EXPECT_FALSE(classNamed(root)->isSubclassOf(id(leaf)));
}

TEST_F(ClassSystem, EndsAWalkOverIdentitiesWithAnError) {
    const std::string root = provider().makeClass({"Root", {}, {}, {}});
    CONFORMANCE_NEEDS(!root.empty(), "classes");
    const std::string leaf = provider().makeClass({"Leaf", {root}, {}, {}});
    const zelk::COSIDIteratorPtr walk = classNamed(leaf)->getSuperclasses();
    ASSERT_TRUE(walk);
    EXPECT_TRUE(walk->hasMoreElements());
    EXPECT_TRUE(walk->hasMoreElements()) << "asking takes nothing";
    EXPECT_EQ(walk->nextElement(), id(root));
    EXPECT_FALSE(walk->hasMoreElements());
    EXPECT_THROW(walk->nextElement(), zelk::ENoElements);
    EXPECT_THROW(walk->nextElement(), foundation::core::except::IException);
}

TEST_F(ClassSystem, WalksIndependentlyOfOtherWalks) {
    const std::string root = provider().makeClass({"Root", {}, {}, {}});
    CONFORMANCE_NEEDS(!root.empty(), "classes");
    const std::string leaf = provider().makeClass({"Leaf", {root}, {}, {}});
    const zelk::COSIDIteratorPtr first = classNamed(leaf)->getSuperclasses();
    const zelk::COSIDIteratorPtr second = classNamed(leaf)->getSuperclasses();
    EXPECT_EQ(first->nextElement(), id(root));
    EXPECT_TRUE(second->hasMoreElements());
}

TEST_F(ClassSystem, ListsTheMembersOfAnEnumerationInTheirOrder) {
    const std::string name = provider().makeEnumeration("Colour", {"red", "green", "blue"});
    CONFORMANCE_NEEDS(!name.empty(), "enumerations");
    const zelk::COSIteratorPtr walk = classNamed(name)->getEnumerationMembers();
    EXPECT_EQ(conformance::namesIn(walk, conformance::enumerationName), (Names{"red", "green", "blue"}));
    EXPECT_FALSE(walk->hasMoreElements());
    EXPECT_THROW(walk->nextElement(), zelk::ENoElements);
    const zelk::COSIteratorPtr again = classNamed(name)->getEnumerationMembers();
    const zelk::COSInterfacePtr member = again->nextElement();
    ASSERT_NE(zelk::cosiToEnum(member.get()), nullptr);
    EXPECT_FALSE(zelk::cosiToEnum(member.get())->isHidden());
    EXPECT_EQ(zelk::cosiToEnum(member.get())->getName(), id("red").c_str());
}

TEST_F(ClassSystem, TellsHiddenMembersOfAnEnumeration) {
    const auto member = provider().memberWith(conformance::MemberTrait::hiddenEnumerationMember);
    CONFORMANCE_NEEDS(member, "hidden enumeration members");
    const zelk::COSIteratorPtr walk = classNamed(member->className)->getEnumerationMembers();
    bool found = false;
    while (walk && walk->hasMoreElements()) {
        const zelk::COSInterfacePtr node = walk->nextElement();
        const zelk::COSEnumInfo* seen = zelk::cosiToEnum(node.get());
        if (seen != nullptr && member->name == seen->getName()) {
            found = true;
            EXPECT_TRUE(seen->isHidden());
        }
    }
    EXPECT_TRUE(found) << "the walk shows hidden members as well";
}

TEST_F(ClassSystem, ListsNoEnumerationMembersOfAnOrdinaryClass) {
    const std::string name = provider().makeClass({"Ordinary", {}, {{"work"}}, {"size"}});
    CONFORMANCE_NEEDS(!name.empty(), "classes");
    EXPECT_EQ(conformance::namesIn(classNamed(name)->getEnumerationMembers(), conformance::enumerationName), Names{});
}

TEST_F(ClassSystem, FillsListsOfAttributeNamesAnew) {
    const std::string name = provider().makeClass({"Plain", {}, {}, {}});
    CONFORMANCE_NEEDS(!name.empty(), "classes");
    const COSClass& cls = *classNamed(name);
    using Query = void (COSClass::*)(bool, Names&) const;
    for (const Query query : {Query(&COSClass::getClassAttributeNames), Query(&COSClass::getPropertyAttributeNames),
                              Query(&COSClass::getMethodAttributeNames), Query(&COSClass::getEventAttributeNames)}) {
        Names advertised = {conformance::unknownName};
        (cls.*query)(false, advertised);
        EXPECT_THAT(advertised, Not(Contains(conformance::unknownName)));
        Names all = {conformance::unknownName};
        (cls.*query)(true, all);
        EXPECT_THAT(all, Not(Contains(conformance::unknownName)));
        for (const std::string& each : advertised) {
            EXPECT_THAT(all, Contains(each)) << "all includes what is advertised";
        }
    }
}

TEST_F(ClassSystem, GivesNoViewOfNothing) {
    EXPECT_EQ(zelk::cosiToMethod(nullptr), nullptr);
    EXPECT_EQ(zelk::cosiToProp(nullptr), nullptr);
    EXPECT_EQ(zelk::cosiToEnum(nullptr), nullptr);
    EXPECT_EQ(zelk::cosiToClass(nullptr), nullptr);
    EXPECT_EQ(zelk::cosiToNamespace(nullptr), nullptr);
}

TEST_F(ClassSystem, HasOneClientThatStandsForEverybody) {
    EXPECT_EQ(&zelk::COSGetPublicClient(), &zelk::COSGetPublicClient());
}

}  // namespace
