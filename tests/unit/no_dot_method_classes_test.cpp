// Values whose method names may not be completed after a dot.
#include "contextdata/exclusion_tables.h"
#include "contextdata/introspection.h"
#include "tests/support/world_test.h"

namespace {

using foundation::core::except::InterruptException;
using memory_host::Fault;
using memory_host::Service;
using testing::ElementsAreArray;
using testing::IsEmpty;
using ZELKIntrospection::isNoDotMethodClass;

constexpr char marker[] = "ostrel.mixin.internal.indexing.DisallowCompletionOfDotMethodNames";

class NoDotMethodClasses : public WorldTest {
protected:
    /// The names that the object system was asked for, in order.
    std::vector<std::string> namesAsked() {
        std::vector<std::string> names;
        for (const memory_host::Call& call : world.journal().calls()) {
            if (call.service == Service::objectSystemGetClassNumber) {
                names.push_back(call.argument);
            }
        }
        return names;
    }

    static std::vector<std::string> listedNames() {
        std::vector<std::string> names;
        for (const std::u16string& name : ZELKContextData::getNoDotMethodClassesExcludeSet()) {
            names.emplace_back(name.begin(), name.end());
        }
        return names;
    }

    void makeListedClasses() {
        for (const std::string& name : listedNames()) {
            world.cls(name);
        }
    }
};

TEST_F(NoDotMethodClasses, EveryListedClassItselfIsOne) {
    makeListedClasses();
    for (const std::string& name : listedNames()) {
        EXPECT_TRUE(isNoDotMethodClass(world.object(name).get())) << name;
    }
}

TEST_F(NoDotMethodClasses, ClassBelowAListedOneIsOneAtAnyDepth) {
    makeListedClasses();
    for (const std::string& name : listedNames()) {
        world.cls("Below" + name).derives("Plain").derives(name);
        world.cls("FarBelow" + name).derives("Below" + name);
        EXPECT_TRUE(isNoDotMethodClass(world.object("Below" + name).get())) << name;
        EXPECT_TRUE(isNoDotMethodClass(world.object("FarBelow" + name).get())) << name;
    }
    EXPECT_FALSE(isNoDotMethodClass(world.object("Plain").get()));
}

TEST_F(NoDotMethodClasses, ClassThatOptsOutByTheMarkerIsOne) {
    world.cls("Own").derives(marker);
    EXPECT_TRUE(isNoDotMethodClass(world.object("Own").get()));
}

TEST_F(NoDotMethodClasses, PlainValuesAreNone) {
    makeListedClasses();
    for (const qxClassID id : {qxClassID::cell, qxClassID::structure, qxClassID::logical, qxClassID::character,
                               qxClassID::float64, qxClassID::uint64, qxClassID::functionHandle}) {
        EXPECT_FALSE(isNoDotMethodClass(world.valueOf(id).get())) << static_cast<int>(id);
    }
}

TEST_F(NoDotMethodClasses, OtherClassesAndForeignValuesAreNone) {
    makeListedClasses();
    EXPECT_FALSE(isNoDotMethodClass(world.object("bank.Account").get()));
    EXPECT_FALSE(isNoDotMethodClass(world.object("Table").get())) << "letter case counts";
    EXPECT_FALSE(isNoDotMethodClass(world.opaque("java.List").get()));
    EXPECT_FALSE(isNoDotMethodClass(world.olderObject("oldAccount").get()));
}

TEST_F(NoDotMethodClasses, ForeignValueOfAListedClassIsOne) {
    makeListedClasses();
    EXPECT_TRUE(isNoDotMethodClass(world.opaque("table").get()));
    EXPECT_TRUE(isNoDotMethodClass(world.olderObject("dataset").get()));
}

TEST_F(NoDotMethodClasses, NullIsNone) {
    EXPECT_FALSE(isNoDotMethodClass(nullptr));
    EXPECT_THAT(world.journal().calls(), IsEmpty());
}

TEST_F(NoDotMethodClasses, ClassNumberIsThatOfTheValueItselfUpToSixteenAndIsAskedForAbove) {
    for (const int number : {0, 1, 6, 15, 16, 17, 18, 19, 400}) {
        const qxUniqueArray value = world.valueOf(static_cast<qxClassID>(number));
        world.journal().clear();
        isNoDotMethodClass(value.get());
        EXPECT_EQ(world.journal().countOf(Service::qxGetClassID), 1U) << number;
        EXPECT_EQ(world.journal().countOf(Service::qxGetFullClassID), number > 16 ? 1U : 0U) << number;
    }
}

TEST_F(NoDotMethodClasses, NamesAreAskedForInTheirOrderUntilOneIsMet) {
    makeListedClasses();
    const std::vector<std::string> listed = listedNames();
    const qxUniqueArray plain = world.object("bank.Account");
    world.journal().clear();
    EXPECT_FALSE(isNoDotMethodClass(plain.get()));
    EXPECT_THAT(namesAsked(), ElementsAreArray(listed));
    EXPECT_EQ(world.journal().countOf(Service::objectSystemIsDerivedFrom), listed.size());

    for (std::size_t index = 0; index < listed.size(); ++index) {
        const qxUniqueArray value = world.object(listed[index]);
        world.journal().clear();
        EXPECT_TRUE(isNoDotMethodClass(value.get()));
        EXPECT_EQ(namesAsked(), std::vector<std::string>(listed.begin(), listed.begin() + static_cast<int>(index) + 1));
        EXPECT_EQ(world.journal().countOf(Service::objectSystemIsDerivedFrom), index + 1);
    }
}

TEST_F(NoDotMethodClasses, ListedClassesThatTheObjectSystemDoesNotKnowAreMetByNobody) {
    EXPECT_FALSE(isNoDotMethodClass(world.object("bank.Account").get()));
    EXPECT_FALSE(isNoDotMethodClass(world.number(1).get()));
    EXPECT_FALSE(isNoDotMethodClass(world.valueOf(qxClassID::unknown).get()));
}

TEST_F(NoDotMethodClasses, NothingIsCaughtInAnyStep) {
    world.cls("Own").derives(marker);
    const qxUniqueArray value = world.object("Own");
    for (const Service service :
         {Service::qxGetClassID, Service::qxGetFullClassID, Service::getDispatcher, Service::getObjectSystem,
          Service::toString, Service::objectSystemGetClassNumber, Service::objectSystemIsDerivedFrom}) {
        world.faults().failService(service, Fault::standardException);
        EXPECT_THROW(isNoDotMethodClass(value.get()), std::runtime_error) << nameOf(service);
        world.faults().failService(service, Fault::thrownInt);
        EXPECT_THROW(isNoDotMethodClass(value.get()), int) << nameOf(service);
        world.faults().failService(service, Fault::badAlloc);
        EXPECT_THROW(isNoDotMethodClass(value.get()), std::bad_alloc) << nameOf(service);
        world.faults().failService(service, Fault::interrupt);
        EXPECT_THROW(isNoDotMethodClass(value.get()), InterruptException) << nameOf(service);
    }
}

}  // namespace
