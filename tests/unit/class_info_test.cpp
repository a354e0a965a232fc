// One class as it is known: its name, its identity and the tree of its superclasses.
#include "contextdata/class_info.h"

#include "tests/unit/class_model_test.h"

namespace {

using foundation::core::except::InterruptException;
using memory_host::Call;
using memory_host::Fault;
using memory_host::Service;
using testing::ElementsAre;
using testing::IsEmpty;
using ZELKContextData::ClassStructureInfo;

class ClassInfoTest : public ClassModelTest {
protected:
    static void expectUnknown(const ClassInfo& cls) {
        EXPECT_EQ(cls.getClass(), u"");
        EXPECT_TRUE(cls.getSuperclassInfo().classID.isEmpty());
        EXPECT_THAT(cls.getSuperclassInfo().superclasses, IsEmpty());
        EXPECT_THAT(cls.getSuperclassInfo().getSuperclasses(), IsEmpty());
        EXPECT_TRUE(cls.isA(zelk::COSInternedID()));
        EXPECT_TRUE(cls.isA(std::u16string()));
        EXPECT_FALSE(cls.isA(id("Leaf")));
        EXPECT_FALSE(cls.isA(u"Leaf"));
    }

    static const ClassInfo& superclass(const ClassInfo& cls, std::size_t index) {
        return *cls.getSuperclassInfo().superclasses.at(index);
    }
};

// From an identity.

TEST_F(ClassInfoTest, IdentityGivesTheNameWithoutItsPackageAndTheFullId) {
    world.cls("till:shop.Till");
    const ClassInfo cls = infoOf("till:shop.Till");
    EXPECT_EQ(cls.getClass(), u"shop.Till");
    EXPECT_EQ(cls.getSuperclassInfo().classID, id("till:shop.Till"));
    EXPECT_EQ(&cls.getClass(), &cls.getSuperclassInfo().className);
}

TEST_F(ClassInfoTest, NullIdentityIsAnUnknownClassAndAsksNobody) {
    const ClassInfo cls{ResolvedClassID()};
    EXPECT_THAT(world.journal().calls(), IsEmpty());
    expectUnknown(cls);
}

TEST_F(ClassInfoTest, IdentityOfNoClassKeepsItsNameAndHasNoSuperclasses) {
    const ClassInfo cls = infoOf("no.such.Class");
    EXPECT_EQ(cls.getClass(), u"no.such.Class");
    EXPECT_EQ(cls.getSuperclassInfo().classID, id("no.such.Class"));
    EXPECT_THAT(cls.getSuperclassInfo().superclasses, IsEmpty());
}

TEST_F(ClassInfoTest, IdentityIsTakenAsItStandsInAnOlderFormToo) {
    world.cls("bank.Account").derives("Root");
    world.legacyName("oldAccount", "bank.Account");
    const ClassInfo cls = infoOf("oldAccount");
    EXPECT_EQ(cls.getClass(), u"oldAccount");
    EXPECT_EQ(cls.getSuperclassInfo().classID, id("oldAccount"));
    EXPECT_THAT(cls.getSuperclassInfo().getSuperclasses(), ElementsAre(u"oldAccount", u"Root"));
}

TEST_F(ClassInfoTest, ClassWithoutDefinitionHasItsSuperclassesAllTheSame) {
    world.cls("bank.Draft").undefined().derives("Root");
    EXPECT_THAT(infoOf("bank.Draft").getSuperclassInfo().getSuperclasses(), ElementsAre(u"bank.Draft", u"Root"));
}

TEST_F(ClassInfoTest, NamesBeyondAsciiAreConvertedNotWidened) {
    world
        .cls(
            "bank.Gr\xC3\xB6\xC3\x9F"
            "e")
        .derives("bank.\xC3\x84");
    EXPECT_THAT(infoOf("bank.Gr\xC3\xB6\xC3\x9F"
                       "e")
                    .getSuperclassInfo()
                    .getSuperclasses(),
                ElementsAre(u"bank.Gr\u00F6\u00DFe", u"bank.\u00C4"));
}

// From a value.

TEST_F(ClassInfoTest, ValueGivesTheNameWithItsPackageAndItsSuperclassesWithout) {
    world.cls("till:shop.Till").derives("till:shop.Device");
    const qxUniqueArray till = world.object("till:shop.Till");
    const ClassInfo cls(till.get());
    EXPECT_EQ(cls.getClass(), u"till:shop.Till");
    EXPECT_EQ(cls.getSuperclassInfo().classID, id("till:shop.Till"));
    EXPECT_THAT(cls.getSuperclassInfo().getSuperclasses(), ElementsAre(u"till:shop.Till", u"shop.Device"));
    EXPECT_EQ(superclass(cls, 0).getSuperclassInfo().classID, id("till:shop.Device"));
}

TEST_F(ClassInfoTest, DerivationByNameFollowsTheStoredNameAndByIdDoesNot) {
    const qxUniqueArray till = world.object("till:shop.Till");
    const ClassInfo ofValue(till.get());
    const ClassInfo ofIdentity = infoOf("till:shop.Till");
    EXPECT_TRUE(ofValue.isA(u"till:shop.Till"));
    EXPECT_FALSE(ofValue.isA(u"shop.Till"));
    EXPECT_FALSE(ofIdentity.isA(u"till:shop.Till"));
    EXPECT_TRUE(ofIdentity.isA(u"shop.Till"));
    EXPECT_TRUE(ofValue.isA(id("till:shop.Till")));
    EXPECT_TRUE(ofIdentity.isA(id("till:shop.Till")));
}

TEST_F(ClassInfoTest, NullValueIsAnUnknownClassAndAsksNobody) {
    const ClassInfo cls(static_cast<const qxArray*>(nullptr));
    EXPECT_THAT(world.journal().calls(), IsEmpty());
    expectUnknown(cls);
}

TEST_F(ClassInfoTest, ValueThatIsNoObjectIsAnUnknownClass) {
    world.cls("double").method("sum");
    world.cls("java.List").method("add");
    std::vector<qxUniqueArray> values;
    values.push_back(world.number(1));
    values.push_back(world.charRow(u"text"));
    values.push_back(world.structure());
    values.push_back(world.functionHandle());
    values.push_back(world.opaque("java.List"));
    values.push_back(world.olderObject("oldAccount"));
    for (const qxUniqueArray& value : values) {
        world.journal().clear();
        const ClassInfo cls(value.get());
        EXPECT_THAT(world.journal().calls(), ElementsAre(Call{Service::omIsZELK, ""}));
        expectUnknown(cls);
    }
}

TEST_F(ClassInfoTest, ObjectOfAClassWithoutDefinitionIsAnUnknownClass) {
    world.cls("bank.Draft").undefined().derives("Root");
    const qxUniqueArray draft = world.object("bank.Draft");
    expectUnknown(ClassInfo(draft.get()));
}

// From a name in a file.

TEST_F(ClassInfoTest, NameIsResolvedAsTheFileSeesItAndThenTakenForAnIdentity) {
    world.contextResolution(true);
    world.cls("till:shop.Till").derives("Root");
    world.imports(world.scope(u"sale.k"), "Till", "till:shop.Till");
    const ClassInfo cls(u"sale.k", u"Till");
    EXPECT_EQ(cls.getClass(), u"shop.Till");
    EXPECT_EQ(cls.getSuperclassInfo().classID, id("till:shop.Till"));
    EXPECT_THAT(cls.getSuperclassInfo().getSuperclasses(), ElementsAre(u"shop.Till", u"Root"));
}

TEST_F(ClassInfoTest, NameThatMeansNothingInTheFileIsAnUnknownClass) {
    world.contextResolution(true);
    world.cls("till:shop.Till");
    expectUnknown(ClassInfo(u"sale.k", u"Till"));
    expectUnknown(ClassInfo(u"sale.k", u""));
    expectUnknown(ClassInfo(u"sale.k", u".Till"));
}

TEST_F(ClassInfoTest, WhatTheResolutionOfANameRaisesPassesOut) {
    world.faults().failService(Service::toString, Fault::standardException);
    EXPECT_THROW(ClassInfo(u"sale.k", u"Till"), std::runtime_error);
    world.faults().failService(Service::featureIsOn, Fault::interrupt);
    EXPECT_THROW(ClassInfo(u"sale.k", u"Till"), InterruptException);
}

// Superclasses.

TEST_F(ClassInfoTest, ClassWithoutSuperclassesListsItselfAlone) {
    world.cls("Root");
    EXPECT_THAT(infoOf("Root").getSuperclassInfo().getSuperclasses(), ElementsAre(u"Root"));
}

TEST_F(ClassInfoTest, DiamondIsListedDepthFirstWithItsRootTwice) {
    makeDiamond();
    EXPECT_THAT(infoOf("Leaf").getSuperclassInfo().getSuperclasses(),
                ElementsAre(u"Leaf", u"Left", u"Root", u"Right", u"Root"));
}

TEST_F(ClassInfoTest, EveryPathToAnAncestorHasAnObjectOfItsOwn) {
    makeDiamond();
    const ClassInfo leaf = infoOf("Leaf");
    ASSERT_EQ(leaf.getSuperclassInfo().superclasses.size(), 2U);
    const ClassInfo& rootOfLeft = superclass(superclass(leaf, 0), 0);
    const ClassInfo& rootOfRight = superclass(superclass(leaf, 1), 0);
    EXPECT_NE(&rootOfLeft, &rootOfRight);
    EXPECT_EQ(rootOfLeft.getClass(), u"Root");
    EXPECT_EQ(rootOfRight.getSuperclassInfo().classID, id("Root"));
}

TEST_F(ClassInfoTest, ObjectsThatAreMadeSeparatelyShareNothing) {
    makeDiamond();
    const ClassInfo first = infoOf("Leaf");
    const ClassInfo second = infoOf("Leaf");
    EXPECT_NE(&superclass(first, 0), &superclass(second, 0));
}

TEST_F(ClassInfoTest, SuperclassesStandInTheClassSystemsOrderRepeatsIncluded) {
    world.cls("Leaf").derives("Zeta").derives("Alpha").derives("Zeta");
    EXPECT_THAT(infoOf("Leaf").getSuperclassInfo().getSuperclasses(), ElementsAre(u"Leaf", u"Zeta", u"Alpha", u"Zeta"));
}

TEST_F(ClassInfoTest, SuperclassIsKnownByTheIdThatItsClassObjectShows) {
    world.cls("till:shop.Device").derives("Root");
    world.legacyName("oldDevice", "till:shop.Device");
    world.cls("till:shop.Till").listsSuperclass("oldDevice");
    const ClassInfo till = infoOf("till:shop.Till");
    EXPECT_EQ(superclass(till, 0).getSuperclassInfo().classID, id("till:shop.Device"));
    EXPECT_THAT(till.getSuperclassInfo().getSuperclasses(), ElementsAre(u"shop.Till", u"shop.Device", u"Root"));
}

TEST_F(ClassInfoTest, ASuperclassThatStandsAboveItselfIsAnEmptyEntry) {
    world.legacyName("Older", "Leaf");
    world.cls("Leaf").listsSuperclass("Older").listsSuperclass("Other");
    world.cls("Other").listsSuperclass("Leaf").derives("Root");
    const ClassInfo cls = infoOf("Leaf");
    EXPECT_THAT(cls.getSuperclassInfo().getSuperclasses(), ElementsAre(u"Leaf", u"Other", u"Root"));
    expectUnknown(superclass(cls, 0));
    expectUnknown(superclass(superclass(cls, 1), 0));
}

TEST_F(ClassInfoTest, SuperclassOfNoIdAndOneOfNoClassAreEmptyEntriesThatListNothing) {
    world.cls("Leaf").listsNullSuperclass().derives("Root").listsSuperclass("no.such.Class");
    const ClassInfo leaf = infoOf("Leaf");
    ASSERT_EQ(leaf.getSuperclassInfo().superclasses.size(), 3U);
    expectUnknown(superclass(leaf, 0));
    EXPECT_EQ(superclass(leaf, 1).getClass(), u"Root");
    expectUnknown(superclass(leaf, 2));
    EXPECT_THAT(leaf.getSuperclassInfo().getSuperclasses(), ElementsAre(u"Leaf", u"Root"));
}

TEST_F(ClassInfoTest, TreeHasNoLimitOfDepth) {
    constexpr std::size_t depth = 500;
    for (std::size_t level = 1; level < depth; ++level) {
        world.cls("Level" + std::to_string(level)).derives("Level" + std::to_string(level + 1));
    }
    const ClassInfo first = infoOf("Level1");
    EXPECT_EQ(first.getSuperclassInfo().getSuperclasses().size(), depth);
    EXPECT_TRUE(first.isA(id("Level500")));
    EXPECT_FALSE(first.isA(id("Level501")));
}

TEST_F(ClassInfoTest, WalkOverTheSuperclassesIsReleased) {
    makeDiamond();
    const ClassInfo leaf = infoOf("Leaf");
    EXPECT_EQ(world.handlesAlive(), 0U);
}

TEST_F(ClassInfoTest, InterruptAndFailuresWhileTheTreeIsBuiltPassAndLeaveNothingBehind) {
    makeDiamond();
    for (const Service service :
         {Service::getBaseClassNameFromFullName, Service::toUstring, Service::getClass, Service::classGetSuperclasses,
          Service::idIteratorHasMoreElements, Service::idIteratorNextElement, Service::classGetID}) {
        world.faults().failService(service, 2, Fault::interrupt);
        EXPECT_THROW(infoOf("Leaf"), InterruptException) << nameOf(service);
        world.faults().failService(service, 2, Fault::standardException);
        EXPECT_THROW(infoOf("Leaf"), std::runtime_error) << nameOf(service);
        EXPECT_EQ(world.handlesAlive(), 0U) << nameOf(service);
    }
}

TEST_F(ClassInfoTest, NamelessStructureListsNothingWhateverHangsBelowIt) {
    world.cls("Root");
    ClassStructureInfo structure;
    structure.superclasses.push_back(std::make_shared<ClassInfo>(infoOf("Root")));
    EXPECT_THAT(structure.getSuperclasses(), IsEmpty());
    structure.className = u"Leaf";
    EXPECT_THAT(structure.getSuperclasses(), ElementsAre(u"Leaf", u"Root"));
}

// Derivation.

TEST_F(ClassInfoTest, ClassIsAnyOfItsAncestorsAndItself) {
    makeDiamond();
    world.cls("Other");
    const ClassInfo leaf = infoOf("Leaf");
    for (const char* name : {"Leaf", "Left", "Right", "Root"}) {
        EXPECT_TRUE(leaf.isA(id(name))) << name;
        EXPECT_TRUE(leaf.isA(std::u16string(name, name + std::string_view(name).size()))) << name;
    }
    EXPECT_FALSE(leaf.isA(id("Other")));
    EXPECT_FALSE(leaf.isA(u"Other"));
    EXPECT_FALSE(infoOf("Root").isA(id("Leaf")));
    EXPECT_FALSE(infoOf("Left").isA(u"Right"));
}

TEST_F(ClassInfoTest, NamesAreComparedWholeAndWithTheirLetterCase) {
    makeDiamond();
    const ClassInfo leaf = infoOf("Leaf");
    for (const char16_t* name : {u"leaf", u"ROOT", u"Lea", u"Leaf ", u"Roots", u""}) {
        EXPECT_FALSE(leaf.isA(std::u16string(name)));
    }
}

TEST_F(ClassInfoTest, KnownClassIsNotTheNullIdSaveThroughAnEmptySuperclass) {
    world.cls("Root");
    EXPECT_FALSE(infoOf("Root").isA(zelk::COSInternedID()));
    EXPECT_FALSE(infoOf("Root").isA(std::u16string()));
    world.cls("Leaf").listsNullSuperclass();
    EXPECT_TRUE(infoOf("Leaf").isA(zelk::COSInternedID()));
    EXPECT_TRUE(infoOf("Leaf").isA(std::u16string()));
}

TEST_F(ClassInfoTest, DerivationAsksNobody) {
    makeDiamond();
    const ClassInfo leaf = infoOf("Leaf");
    const zelk::COSInternedID root = id("Root");
    world.journal().clear();
    EXPECT_TRUE(leaf.isA(root));
    EXPECT_TRUE(leaf.isA(u"Root"));
    EXPECT_EQ(leaf.getSuperclassInfo().getSuperclasses().size(), 5U);
    EXPECT_THAT(world.journal().calls(), IsEmpty());
}

}  // namespace
