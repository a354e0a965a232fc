#include "contextdata/other_object_systems.h"
#include "tests/support/world_test.h"

namespace {

using foundation::core::except::InterruptException;
using memory_host::Fault;
using memory_host::Service;
using StructContextData::getStructFieldNames;
using testing::ElementsAre;

class StructFieldsTest : public WorldTest {
protected:
    qxUniqueArray structureWith(std::initializer_list<std::string_view> fields) {
        qxUniqueArray made = world.structure();
        for (const std::string_view field : fields) {
            world.setField(made, field, world.number(1));
        }
        return made;
    }

    const Names before = {u"kept"};
    Names names = before;
};

TEST_F(StructFieldsTest, FieldsStandInTheOrderOfTheStructure) {
    getStructFieldNames(structureWith({"zeta", "alpha", "mid"}).get(), names);
    EXPECT_THAT(names, ElementsAre(u"kept", u"zeta", u"alpha", u"mid"));
}

TEST_F(StructFieldsTest, NameThatIsThereAlreadyIsAppendedAgain) {
    const qxUniqueArray value = structureWith({"kept"});
    getStructFieldNames(value.get(), names);
    getStructFieldNames(value.get(), names);
    EXPECT_THAT(names, ElementsAre(u"kept", u"kept", u"kept"));
}

TEST_F(StructFieldsTest, StructureWithoutFieldsAddsNothing) {
    getStructFieldNames(world.structure().get(), names);
    EXPECT_EQ(names, before);
    EXPECT_EQ(world.journal().countOf(Service::qxGetFieldNameByNumber), 0U);
}

TEST_F(StructFieldsTest, ValueThatHasNoFieldsAddsNothing) {
    getStructFieldNames(world.number(1).get(), names);
    EXPECT_EQ(names, before);
}

TEST_F(StructFieldsTest, StructureOfSeveralElementsOrNoneHasItsFieldsOnce) {
    const qxUniqueArray several = world.structure({2, 3});
    world.setField(several, "balance", world.number(1));
    world.setField(several, "owner", qxUniqueArray(), 5);
    getStructFieldNames(several.get(), names);
    EXPECT_THAT(names, ElementsAre(u"kept", u"balance", u"owner"));
    const qxUniqueArray value = structureWith({"balance"});
    world.reshape(value.get(), {0, 0});
    getStructFieldNames(value.get(), names);
    EXPECT_THAT(names, ElementsAre(u"kept", u"balance", u"owner", u"balance"));
}

TEST_F(StructFieldsTest, NamesBeyondAsciiAreSubstituted) {
    getStructFieldNames(structureWith({"caf\xC3\xA9"}).get(), names);
    EXPECT_THAT(names, ElementsAre(u"kept", u"caf??"));
}

TEST_F(StructFieldsTest, NothingIsCaughtAndNamesSoFarStay) {
    const qxUniqueArray value = structureWith({"one", "two", "three"});
    world.faults().failService(Service::qxGetFieldNameByNumber, 3, Fault::interrupt);
    EXPECT_THROW(getStructFieldNames(value.get(), names), InterruptException);
    EXPECT_THAT(names, ElementsAre(u"kept", u"one", u"two"));
    world.faults().failService(Service::toUstring, 1, Fault::thrownInt);
    EXPECT_THROW(getStructFieldNames(value.get(), names), int);
    world.faults().failService(Service::qxGetNumberOfFields, Fault::hostException);
    EXPECT_THROW(getStructFieldNames(value.get(), names), foundation::core::except::IException);
    EXPECT_THAT(names, ElementsAre(u"kept", u"one", u"two"));
}

}  // namespace
