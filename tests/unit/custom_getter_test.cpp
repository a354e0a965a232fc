// Whether reading a property runs code of its author.
#include "contextdata/class_info.h"
#include "tests/unit/class_model_test.h"

namespace {

using foundation::core::except::InterruptException;
using memory_host::Call;
using memory_host::ClassBuilder;
using memory_host::Fault;
using memory_host::Service;
using testing::Contains;
using testing::ElementsAre;
using ZELKContextData::PropertyInfo;

class CustomGetter : public ClassModelTest {
protected:
    ClassBuilder property() { return world.cls("Leaf").property("colour"); }

    static bool isFound() {
        const std::vector<PropertyInfo> properties = infoOf("Leaf").getProperties({});
        EXPECT_EQ(properties.size(), 1U);
        return !properties.empty() && properties.front().hasCustomGetter;
    }
};

TEST_F(CustomGetter, AttributesThatStandForOneAreThese) {
    const std::vector<std::string>& names = ZELKContextData::getAttributesToTreatAsHavingCustomGetters();
    EXPECT_THAT(names, ElementsAre("RVXGetSet"));
    EXPECT_EQ(&names, &ZELKContextData::getAttributesToTreatAsHavingCustomGetters());
}

TEST_F(CustomGetter, IsNotSaidOfAPropertyOfWhichNothingSaysSo) {
    property();
    EXPECT_FALSE(isFound());
    EXPECT_THAT(world.journal().calls(), Contains(Call{Service::propertyFindAttribute, "RVXGetSet"}));
}

TEST_F(CustomGetter, IsKnownFromTheExtendedRecordWithoutAnyAttribute) {
    property().customGetter();
    EXPECT_TRUE(isFound());
    EXPECT_EQ(world.journal().countOf(Service::propertyFindAttribute), 0U);
}

TEST_F(CustomGetter, IsLookedForAmongAttributesWhenTheExtendedRecordSaysNo) {
    property().customGetter(false).attribute("RVXGetSet", "logical scalar", world.logical(true));
    EXPECT_TRUE(isFound());
}

TEST_F(CustomGetter, IsSaidByALogicalScalarAttributeWithAnyValue) {
    property().attribute("RVXGetSet", "logical scalar", world.logical(true));
    EXPECT_TRUE(isFound());
}

TEST_F(CustomGetter, IsSaidByAValueOfFalseToo) {
    property().attribute("RVXGetSet", "logical scalar", world.logical(false));
    EXPECT_TRUE(isFound());
}

TEST_F(CustomGetter, IsNotSaidByAnAttributeWithoutAValue) {
    property().attribute("RVXGetSet", "logical scalar", nullptr);
    EXPECT_FALSE(isFound());
}

TEST_F(CustomGetter, IsNotSaidByAnAttributeWithoutAType) {
    property().attribute("RVXGetSet", "", world.logical(true));
    EXPECT_FALSE(isFound());
    EXPECT_EQ(world.journal().countOf(Service::attributeGetValue), 0U);
}

TEST_F(CustomGetter, IsNotSaidByAnAttributeOfAnotherType) {
    world.cls("Leaf");
    for (const char* type : {"logical", "Logical scalar", "logical scalar ", "logical  scalar", "double scalar"}) {
        world.cls("Leaf").property("colour").attribute("RVXGetSet", type, world.logical(true));
    }
    for (const PropertyInfo& record : infoOf("Leaf").getProperties({})) {
        EXPECT_FALSE(record.hasCustomGetter);
    }
    EXPECT_EQ(world.journal().countOf(Service::attributeGetDataType), 5U);
    EXPECT_EQ(world.journal().countOf(Service::attributeGetValue), 0U);
}

TEST_F(CustomGetter, IsNotSaidByAttributesOfOtherNames) {
    property()
        .attribute("rvxgetset", "logical scalar", world.logical(true))
        .attribute("RVXGet", "logical scalar", world.logical(true));
    EXPECT_FALSE(isFound());
}

TEST_F(CustomGetter, IsAskedForAsEverybody) {
    property().attribute("RVXGetSet", "logical scalar", world.logical(true));
    EXPECT_TRUE(isFound());
    EXPECT_EQ(world.journal().countOf(Service::getPublicClient), 1U);
}

TEST_F(CustomGetter, AttributeAndItsValueAreReleased) {
    property().attribute("RVXGetSet", "logical scalar", world.logical(true));
    const std::size_t values = world.valuesAlive();
    EXPECT_TRUE(isFound());
    EXPECT_EQ(world.handlesAlive(), 0U);
    EXPECT_EQ(world.valuesAlive(), values);
}

TEST_F(CustomGetter, IsAskedForByANameThatIsInternedOnceAQuestion) {
    world.cls("Leaf").property("colour").property("shade").property("width");
    const ClassInfo leaf = infoOf("Leaf");
    for (int question = 1; question <= 2; ++question) {
        world.journal().clear();
        EXPECT_EQ(leaf.getProperties({}).size(), 3U);
        EXPECT_EQ(world.journal().countOf(Service::makeInterned), 1U);
        EXPECT_EQ(world.journal().countOf(Service::propertyFindAttribute), 3U);
    }
}

TEST_F(CustomGetter, IsTakenForGrantedOfThePropertyAloneWhoseQuestionHadNoInternedName) {
    world.cls("Leaf").property("colour").property("shade");
    const ClassInfo leaf = infoOf("Leaf");
    world.faults().failService(Service::makeInterned, 1, Fault::standardException);
    const std::vector<PropertyInfo> properties = leaf.getProperties({});
    ASSERT_EQ(properties.size(), 2U);
    EXPECT_TRUE(properties.front().hasCustomGetter);
    EXPECT_FALSE(properties.back().hasCustomGetter);
}

TEST_F(CustomGetter, IsTakenForGrantedWhenTheHostFailsAndTheInterruptPasses) {
    property().customGetter(false).attribute("RVXGetSet", "logical scalar", nullptr);
    ASSERT_FALSE(isFound());
    const ClassInfo leaf = infoOf("Leaf");
    for (const Service service : {Service::propertyGetExtended, Service::extendedHasCustomGetter, Service::makeInterned,
                                  Service::propertyFindAttribute, Service::attributeGetDataType, Service::dataTypeGetID,
                                  Service::getPublicClient, Service::attributeGetValue}) {
        for (const Fault fault : failuresButInterrupt) {
            world.faults().failService(service, 1, fault);
            const std::vector<PropertyInfo> properties = leaf.getProperties({});
            ASSERT_EQ(properties.size(), 1U) << nameOf(service) << ": " << fault;
            EXPECT_TRUE(properties.front().hasCustomGetter) << nameOf(service) << ": " << fault;
            EXPECT_EQ(world.handlesAlive(), 0U);
        }
        world.faults().failService(service, 1, Fault::interrupt);
        EXPECT_THROW(leaf.getProperties({}), InterruptException) << nameOf(service);
        EXPECT_EQ(world.handlesAlive(), 0U);
    }
}

}  // namespace
