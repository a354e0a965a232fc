// Copies of class information, and moves of its structure.
#include <optional>
#include <utility>

#include "contextdata/class_info.h"
#include "tests/unit/class_model_test.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using ZELKContextData::ClassStructureInfo;

class ClassInfoCopies : public ClassModelTest {
protected:
    ClassInfoCopies() {
        makeDiamond();
        world.cls("Leaf").method("fall").property("colour");
        world.cls("Other").method("wait").property("size").derives("Root");
        world.cls("Root").method("grow").property("depth");
    }
};

TEST_F(ClassInfoCopies, CopySharesTheSuperclassObjectsOfItsSource) {
    const ClassInfo source = infoOf("Leaf");
    const ClassInfo copy(source);
    EXPECT_EQ(copy.getClass(), u"Leaf");
    EXPECT_EQ(copy.getSuperclassInfo().classID, id("Leaf"));
    EXPECT_EQ(copy.getSuperclassInfo().superclasses, source.getSuperclassInfo().superclasses);
    EXPECT_EQ(copy.getSuperclassInfo().superclasses.front().use_count(), 2);
}

TEST_F(ClassInfoCopies, CopyAsksNobody) {
    const ClassInfo source = infoOf("Leaf");
    world.journal().clear();
    const ClassInfo copy(source);
    EXPECT_THAT(world.journal().calls(), IsEmpty());
}

TEST_F(ClassInfoCopies, SuperclassTreeOutlivesTheSource) {
    std::optional<ClassInfo> source(std::in_place, ResolvedClassID::fromKnownResolvedClassID(id("Leaf")));
    const ClassInfo copy(*source);
    source.reset();
    EXPECT_THAT(copy.getSuperclassInfo().getSuperclasses(), ElementsAre(u"Leaf", u"Left", u"Root", u"Right", u"Root"));
    EXPECT_TRUE(copy.isA(id("Root")));
    EXPECT_THAT(namesOf(copy.getSuperclassInfo().superclasses.front()->getMethods(methodOptions())),
                ElementsAre(u"grow"));
}

TEST_F(ClassInfoCopies, AssignmentReplacesNameIdAndSuperclasses) {
    const ClassInfo other = infoOf("Other");
    ClassInfo cls = infoOf("Leaf");
    cls = other;
    EXPECT_EQ(cls.getClass(), u"Other");
    EXPECT_EQ(cls.getSuperclassInfo().classID, id("Other"));
    EXPECT_EQ(cls.getSuperclassInfo().superclasses, other.getSuperclassInfo().superclasses);
    EXPECT_THAT(methodsOf(cls), ElementsAre(u"grow", u"wait"));
}

TEST_F(ClassInfoCopies, AssignmentToItselfChangesNothing) {
    ClassInfo cls = infoOf("Leaf");
    const ClassInfo& itself = cls;
    cls = itself;
    EXPECT_THAT(cls.getSuperclassInfo().getSuperclasses(), ElementsAre(u"Leaf", u"Left", u"Root", u"Right", u"Root"));
    EXPECT_THAT(methodsOf(cls), ElementsAre(u"grow", u"grow", u"fall"));
}

TEST_F(ClassInfoCopies, CopyListsTheMembersOfItsClassWhileItsSourceStands) {
    const ClassInfo source = infoOf("Leaf");
    const ClassInfo copy(source);
    EXPECT_THAT(methodsOf(copy), ElementsAre(u"grow", u"grow", u"fall"));
    EXPECT_THAT(propertiesOf(copy), ElementsAre(u"depth", u"depth", u"colour"));
}

TEST_F(ClassInfoCopies, VisitorsOfACopyGoOnWorkingForTheSourceWhateverItBecomes) {
    const ClassInfo other = infoOf("Other");
    ClassInfo source = infoOf("Leaf");
    const ClassInfo copy(source);
    source = other;
    // They take what the source's class declares, and the class that is walked declares none of that.
    EXPECT_THAT(methodsOf(copy), ElementsAre(u"grow", u"grow"));
    EXPECT_THAT(propertiesOf(copy), ElementsAre(u"depth", u"depth"));
}

TEST_F(ClassInfoCopies, AskingACopyLeavesTheListsOfTheSourceAlone) {
    world.cls("Leaf").property("grain");
    const ClassInfo source = infoOf("Leaf");
    const ClassInfo copy(source);
    const std::vector<PropertyInfo> before = source.getProperties({});
    EXPECT_THAT(propertiesOf(copy), ElementsAre(u"depth", u"depth", u"colour", u"grain"));
    EXPECT_EQ(namesOf(source.getProperties({})), namesOf(before));
}

// The structure.

TEST_F(ClassInfoCopies, StructureStartsUnknown) {
    const ClassStructureInfo structure;
    EXPECT_EQ(structure.className, u"");
    EXPECT_THAT(structure.superclasses, IsEmpty());
    EXPECT_TRUE(structure.classID.isEmpty());
}

TEST_F(ClassInfoCopies, CopyOfAStructureSharesItsSuperclasses) {
    const ClassInfo leaf = infoOf("Leaf");
    ClassStructureInfo copy(leaf.getSuperclassInfo());
    EXPECT_EQ(copy.className, u"Leaf");
    EXPECT_EQ(copy.classID, id("Leaf"));
    EXPECT_EQ(copy.superclasses, leaf.getSuperclassInfo().superclasses);
    const ClassInfo other = infoOf("Other");
    copy = other.getSuperclassInfo();
    EXPECT_EQ(copy.className, u"Other");
    EXPECT_EQ(copy.classID, id("Other"));
    EXPECT_EQ(copy.superclasses, other.getSuperclassInfo().superclasses);
    EXPECT_EQ(leaf.getSuperclassInfo().superclasses.front().use_count(), 1);
}

TEST_F(ClassInfoCopies, AssignmentOfAStructureToItselfChangesNothing) {
    ClassStructureInfo structure = infoOf("Leaf").getSuperclassInfo();
    const ClassStructureInfo& itself = structure;
    structure = itself;
    EXPECT_THAT(structure.getSuperclasses(), ElementsAre(u"Leaf", u"Left", u"Root", u"Right", u"Root"));
    EXPECT_EQ(structure.classID, id("Leaf"));
}

TEST_F(ClassInfoCopies, MoveOfAStructureToItselfChangesNothing) {
    ClassStructureInfo structure = infoOf("Leaf").getSuperclassInfo();
    ClassStructureInfo& itself = structure;
    structure = std::move(itself);
    EXPECT_THAT(structure.getSuperclasses(), ElementsAre(u"Leaf", u"Left", u"Root", u"Right", u"Root"));
    EXPECT_EQ(structure.classID, id("Leaf"));
}

// A name that is too long for the string itself and one that is not: moving treats them differently by itself.
TEST_F(ClassInfoCopies, MovedFromStructureKeepsItsIdAndLosesNameAndSuperclasses) {
    const std::string longName = "a.name.that.is.too.long.for.the.string.itself.to.hold";
    world.cls(longName).derives("Root");
    for (const std::string& name : {std::string("Other"), longName}) {
        ClassStructureInfo source = infoOf(name).getSuperclassInfo();
        const ClassInfo* root = source.superclasses.front().get();
        const ClassStructureInfo target(std::move(source));
        EXPECT_EQ(target.className, std::u16string(name.begin(), name.end()));
        EXPECT_EQ(target.classID, id(name));
        ASSERT_EQ(target.superclasses.size(), 1U);
        EXPECT_EQ(target.superclasses.front().get(), root);
        EXPECT_EQ(target.superclasses.front().use_count(), 1);
        // NOLINTBEGIN(bugprone-use-after-move): what is left behind is the promise under test
        EXPECT_EQ(source.className, u"");
        EXPECT_THAT(source.superclasses, IsEmpty());
        EXPECT_EQ(source.classID, id(name));
        // NOLINTEND(bugprone-use-after-move)
    }
}

TEST_F(ClassInfoCopies, StructureThatIsMovedOverAnotherLeavesTheSameBehind) {
    const std::string longName = "a.name.that.is.too.long.for.the.string.itself.to.hold";
    world.cls(longName).derives("Root");
    for (const std::string& name : {std::string("Other"), longName}) {
        ClassStructureInfo source = infoOf(name).getSuperclassInfo();
        ClassStructureInfo target = infoOf("Leaf").getSuperclassInfo();
        const std::weak_ptr<ClassInfo> left = target.superclasses.front();
        target = std::move(source);
        EXPECT_EQ(target.className, std::u16string(name.begin(), name.end()));
        EXPECT_EQ(target.classID, id(name));
        EXPECT_EQ(target.superclasses.size(), 1U);
        EXPECT_TRUE(left.expired()) << "the superclasses that were there before are released";
        // NOLINTBEGIN(bugprone-use-after-move): what is left behind is the promise under test
        EXPECT_EQ(source.className, u"");
        EXPECT_THAT(source.superclasses, IsEmpty());
        EXPECT_EQ(source.classID, id(name));
        // NOLINTEND(bugprone-use-after-move)
    }
}

}  // namespace
