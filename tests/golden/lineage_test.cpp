// Classes of shapes that a careless walk would never come to the end of.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "frontends/completion/describe_class.h"
#include "frontends/completion/insider_members.h"
#include "frontends/completion/lineage.h"
#include "host/exceptions.h"
#include "tests/support/world_test.h"

namespace {

using contextdata::completion::ClassDescription;
using contextdata::completion::deepestSuperclass;
using contextdata::completion::describeClass;
using contextdata::completion::insiderMembersOf;
using contextdata::completion::Lineage;
using contextdata::completion::Superclass;
using foundation::core::except::InterruptException;
using memory_host::Fault;
using memory_host::Service;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using ZELKContextData::ResolvedClassID;

ResolvedClassID idOf(const std::string& name) { return ResolvedClassID::fromKnownResolvedClassID(name); }

std::vector<std::u16string> namesOf(const Lineage& lineage) {
    std::vector<std::u16string> names;
    for (const auto& cls : lineage.classes()) {
        names.push_back(cls->getClass());
    }
    return names;
}

std::size_t sizeOf(const std::vector<Superclass>& tree) {
    std::size_t size = tree.size();
    for (const Superclass& superclass : tree) {
        size += sizeOf(superclass.superclasses);
    }
    return size;
}

class LineageTest : public WorldTest {
protected:
    /// Top0; then for each level two classes above the one before, and one that derives from both.
    std::string stackedDiamonds(int levels) {
        const auto numbered = [](const char* stem, int level) { return stem + std::to_string(level); };
        world.cls("Top0").method("touch0").access(1).openTo("Top0");
        for (int level = 1; level <= levels; ++level) {
            const std::string below = numbered("Top", level - 1);
            world.cls(numbered("Left", level)).derives(below);
            world.cls(numbered("Right", level)).derives(below).method(numbered("touch", level));
            world.cls(numbered("Top", level)).derives(numbered("Left", level)).derives(numbered("Right", level));
        }
        return numbered("Top", levels);
    }

    std::size_t callsOfDescribing(const std::string& name) {
        world.journal().clear();
        describeClass(idOf(name));
        return world.journal().calls().size();
    }
};

TEST_F(LineageTest, holdsEachClassOnceDepthFirst) {
    world.cls("Leaf").derives("Left").derives("Right");
    world.cls("Left").derives("Root");
    world.cls("Right").derives("Root");
    const Lineage lineage(idOf("Leaf"));
    EXPECT_EQ(lineage.getClass(), u"Leaf");
    EXPECT_THAT(namesOf(lineage), ElementsAre(u"Leaf", u"Left", u"Root", u"Right"));
    EXPECT_THAT(lineage.getSuperclassInfo().getSuperclasses(), ElementsAre(u"Leaf", u"Left", u"Root", u"Right"));
    EXPECT_TRUE(lineage.isA(idOf("Root").get()));
    EXPECT_TRUE(lineage.isA(u"Right"));
    EXPECT_FALSE(lineage.isA(u"right"));
}

TEST_F(LineageTest, ofAnUnknownClassIsEmpty) {
    for (const ResolvedClassID& id : {ResolvedClassID(), idOf("Nowhere")}) {
        const Lineage lineage(id);
        EXPECT_THAT(lineage.classes(), IsEmpty());
        EXPECT_THAT(lineage.getProperties({}), IsEmpty());
    }
}

TEST_F(LineageTest, leavesOutSuperclassesThatAreNoClasses) {
    world.cls("Leaf").listsNullSuperclass().listsSuperclass("Nowhere").derives("Root");
    EXPECT_THAT(namesOf(Lineage(idOf("Leaf"))), ElementsAre(u"Leaf", u"Root"));
}

TEST_F(LineageTest, ofAnOlderNameIsThatOfTheClass) {
    world.cls("new.Leaf").derives("Root");
    world.legacyName("Leaf", "new.Leaf");
    EXPECT_THAT(namesOf(Lineage(idOf("Leaf"))), ElementsAre(u"new.Leaf", u"Root"));
}

TEST_F(LineageTest, endsWhereClassesDeriveFromEachOther) {
    world.cls("Hen").derives("Egg").method("cackle");
    world.cls("Egg").derives("Hen").derives("Egg");
    EXPECT_THAT(namesOf(Lineage(idOf("Hen"))), ElementsAre(u"Hen", u"Egg"));
    EXPECT_EQ(sizeOf(describeClass(idOf("Hen")).superclasses), 3U);
    EXPECT_THAT(insiderMembersOf(idOf("Hen"), idOf("Egg")), IsEmpty());
}

TEST_F(LineageTest, stackedDiamondsTakeAsLongAsThereAreClasses) {
    const std::string twenty = stackedDiamonds(20);
    // Twice the classes, and each is led past the members of all that it derives from.
    EXPECT_LT(callsOfDescribing(twenty), 5 * callsOfDescribing("Top10"));
    const ClassDescription description = describeClass(idOf(twenty));
    EXPECT_THAT(description.methods, SizeIs(21));
    EXPECT_EQ(sizeOf(description.superclasses), 80U);
    EXPECT_THAT(insiderMembersOf(idOf(twenty), idOf(twenty)), SizeIs(1));
}

TEST_F(LineageTest, aLongChainIsListedToItsEndAndShownAsDeepAsATreeGoes) {
    constexpr std::size_t length = 2 * deepestSuperclass;
    for (std::size_t level = 0; level < length; ++level) {
        world.cls("C" + std::to_string(level)).derives("C" + std::to_string(level + 1));
    }
    EXPECT_THAT(Lineage(idOf("C0")).classes(), SizeIs(length + 1));
    const ClassDescription description = describeClass(idOf("C0"));
    EXPECT_EQ(sizeOf(description.superclasses), deepestSuperclass);
    const Superclass* deepest = &description.superclasses.front();
    while (!deepest->superclasses.empty()) {
        EXPECT_FALSE(deepest->isCut);
        deepest = &deepest->superclasses.front();
    }
    EXPECT_TRUE(deepest->isCut);
}

TEST_F(LineageTest, aTreeThatEndsWhereItMayGoNoDeeperIsWhole) {
    for (std::size_t level = 0; level < deepestSuperclass; ++level) {
        world.cls("C" + std::to_string(level)).derives("C" + std::to_string(level + 1));
    }
    const ClassDescription description = describeClass(idOf("C0"));
    const Superclass* deepest = &description.superclasses.front();
    while (!deepest->superclasses.empty()) {
        deepest = &deepest->superclasses.front();
    }
    EXPECT_EQ(deepest->name, u"C100");
    EXPECT_FALSE(deepest->isCut);
}

TEST_F(LineageTest, aClassAtWhichTheHostFailsStandsWithoutItsSuperclasses) {
    world.cls("Leaf").derives("Root").method("touch");
    for (const Fault fault : failuresButInterrupt) {
        world.faults().failService(Service::classGetSuperclasses, fault);
        EXPECT_THAT(namesOf(Lineage(idOf("Leaf"))), ElementsAre(u"Leaf")) << fault;
        EXPECT_THAT(describeClass(idOf("Leaf")).methods, SizeIs(1)) << fault;
        world.faults().clear();
    }
}

TEST_F(LineageTest, theInterruptPasses) {
    world.cls("Leaf").derives("Root").method("touch").access(2).property("own").access(2).enumerationMember("one");
    for (const Service service : {Service::getClass, Service::classGetSuperclasses, Service::classVisitMethods,
                                  Service::classVisitProperties}) {
        world.faults().failService(service, Fault::interrupt);
        EXPECT_THROW(describeClass(idOf("Leaf")), InterruptException) << nameOf(service);
        EXPECT_THROW(insiderMembersOf(idOf("Leaf"), idOf("Leaf")), InterruptException) << nameOf(service);
        world.faults().clear();
    }
    world.faults().failService(Service::classGetEnumerationMembers, Fault::interrupt);
    EXPECT_THROW(describeClass(idOf("Leaf")), InterruptException);
}

TEST_F(LineageTest, everyFailureOfEveryCallIsContained) {
    world.cls("Root").property("old").dataType("double").classAttribute("Abstract");
    world.cls("Leaf").derives("Root").method("touch").access(2).enumerationMember("one");
    world.cls("Leaf").property("own").validation("double", {"1"}, {"mustBeFinite"}).getAccess(2);
    const ResolvedClassID leaf = idOf("Leaf");
    const std::vector<std::function<void()>> questions = {
        [leaf] { describeClass(leaf); },
        [leaf] { insiderMembersOf(leaf, leaf); },
    };
    for (const auto& question : questions) {
        world.journal().clear();
        question();
        const std::size_t calls = world.journal().calls().size();
        for (const Fault fault : failuresButInterrupt) {
            for (std::size_t call = 1; call <= calls; ++call) {
                world.faults().failCall(call, fault);
                EXPECT_NO_THROW(question()) << call << fault;
            }
            world.faults().clear();
        }
    }
}

}  // namespace
