// What a property's declared type says in its record.
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
using testing::IsEmpty;
using ZELKContextData::PropertyInfo;

class PropertyTypes : public ClassModelTest {
protected:
    PropertyTypes() {
        world.convertsToAny("Colour", [](const std::string& raw) { return "any " + raw; });
    }

    ClassBuilder property() { return world.cls("Leaf").property("colour"); }

    static PropertyInfo record() {
        const std::vector<PropertyInfo> properties = infoOf("Leaf").getProperties({});
        EXPECT_EQ(properties.size(), 1U);
        return properties.empty() ? PropertyInfo() : properties.front();
    }
};

TEST_F(PropertyTypes, PropertyWithoutATypeHasNothingOfOne) {
    property();
    const PropertyInfo leaf = record();
    EXPECT_EQ(leaf.typeName, u"");
    EXPECT_THAT(leaf.sizes, IsEmpty());
    EXPECT_THAT(leaf.validators, IsEmpty());
    EXPECT_EQ(leaf.valueKind, 0);
    EXPECT_THAT(leaf.values, IsEmpty());
    EXPECT_EQ(world.journal().countOf(Service::validationTypeGet), 0U);
}

TEST_F(PropertyTypes, TypeIsNamedByItsIdentifier) {
    property().dataType("gr\xC3\xB6 scalar");
    EXPECT_EQ(record().typeName, u"gr\u00F6 scalar");
}

TEST_F(PropertyTypes, TypeWithoutAnIdentifierHasNoName) {
    property().emptyValueList();
    const PropertyInfo leaf = record();
    EXPECT_EQ(leaf.typeName, u"");
    EXPECT_THAT(leaf.values, IsEmpty());
}

TEST_F(PropertyTypes, ValidationNamesClassSizesAndCheckingFunctionsInTheirOrder) {
    property().dataType("validated").validation("pkg.Colour", {"3", ":", "n"}, {"mustBeFinite", "mustBeGr\xC3\xB6"});
    const PropertyInfo leaf = record();
    EXPECT_EQ(leaf.typeName, u"pkg.Colour");
    EXPECT_THAT(leaf.sizes, ElementsAre(u"3", u":", u"n"));
    EXPECT_THAT(leaf.validators, ElementsAre(u"mustBeFinite", u"mustBeGr\u00F6"));
}

TEST_F(PropertyTypes, ValidationOfAnyClassLeavesTheNameToTheIdentifier) {
    property().dataType("validated").validation("", {"1", "1"}, {"mustBeFinite"});
    const PropertyInfo leaf = record();
    EXPECT_EQ(leaf.typeName, u"validated");
    EXPECT_THAT(leaf.sizes, ElementsAre(u"1", u"1"));
    EXPECT_THAT(leaf.validators, ElementsAre(u"mustBeFinite"));
}

TEST_F(PropertyTypes, ValidationOfAnyClassAndNoIdentifierKeepsAnEmptyName) {
    property().validation("", {"1"});
    const PropertyInfo leaf = record();
    EXPECT_EQ(leaf.typeName, u"");
    EXPECT_THAT(leaf.sizes, ElementsAre(u"1"));
}

// Values.

TEST_F(PropertyTypes, TextsAreListedInTheirOrderRepeatsIncluded) {
    property().dataType("Colour").textValue("red").textValue("gr\xC3\xBCn").textValue("red");
    const PropertyInfo leaf = record();
    EXPECT_THAT(leaf.values, ElementsAre(u"red", u"gr\u00FCn", u"red"));
    EXPECT_EQ(leaf.valueKind, 1);
}

TEST_F(PropertyTypes, WhatIsNoTextIsConverted) {
    property().dataType("Colour").rawValue("1").rawValue("gr\xC3\xBCn");
    const PropertyInfo leaf = record();
    EXPECT_THAT(leaf.values, ElementsAre(u"any 1", u"any gr\u00FCn"));
    EXPECT_EQ(leaf.valueKind, 2);
}

TEST_F(PropertyTypes, OneConvertedValueMakesTheKindAndALaterTextDoesNotLowerIt) {
    property().dataType("Colour").textValue("red").rawValue("1").textValue("blue");
    const PropertyInfo leaf = record();
    EXPECT_THAT(leaf.values, ElementsAre(u"red", u"any 1", u"blue"));
    EXPECT_EQ(leaf.valueKind, 2);
}

TEST_F(PropertyTypes, WithoutAConversionToAnyNotEvenTextsAreListed) {
    property().dataType("Shade").textValue("red").rawValue("1");
    const PropertyInfo leaf = record();
    EXPECT_EQ(leaf.typeName, u"Shade");
    EXPECT_THAT(leaf.values, IsEmpty());
    EXPECT_EQ(leaf.valueKind, 0);
}

TEST_F(PropertyTypes, ConversionIsLookedForFromTheIdentifierWhateverClassTheValidationNames) {
    property().dataType("Colour").validation("pkg.Shade", {"1"}).textValue("red");
    const PropertyInfo leaf = record();
    EXPECT_EQ(leaf.typeName, u"pkg.Shade");
    EXPECT_THAT(leaf.values, ElementsAre(u"red"));
    EXPECT_THAT(world.journal().calls(), Contains(Call{Service::getConversion, "Colour"}));
    EXPECT_THAT(world.journal().calls(), Contains(Call{Service::makeInterned, "any"}));
}

TEST_F(PropertyTypes, CheckingFunctionsKeepValuesFromBeingListed) {
    property().dataType("Colour").validation("pkg.Colour", {}, {"mustBeBright"}).textValue("red");
    const PropertyInfo leaf = record();
    EXPECT_THAT(leaf.values, IsEmpty());
    EXPECT_EQ(leaf.valueKind, 0);
    EXPECT_EQ(world.journal().countOf(Service::getConversion), 0U);
}

TEST_F(PropertyTypes, TypeWithoutAListOfValuesIsNotAskedForThem) {
    property().dataType("Colour");
    EXPECT_THAT(record().values, IsEmpty());
    EXPECT_EQ(world.journal().countOf(Service::getConversion), 0U);
    EXPECT_EQ(world.journal().countOf(Service::dataTypeVisitValues), 0U);
}

TEST_F(PropertyTypes, EmptyListOfValuesIsNoKind) {
    property().dataType("Colour").emptyValueList();
    const PropertyInfo leaf = record();
    EXPECT_THAT(leaf.values, IsEmpty());
    EXPECT_EQ(leaf.valueKind, 0);
}

TEST_F(PropertyTypes, OneRecordsTypeDoesNotGetIntoTheNext) {
    world.cls("Leaf").property("a").dataType("Colour").validation("pkg.A", {"1"}, {}).rawValue("1");
    world.cls("Leaf").property("b");
    const std::vector<PropertyInfo> properties = infoOf("Leaf").getProperties({});
    ASSERT_EQ(properties.size(), 2U);
    EXPECT_EQ(properties[1].typeName, u"");
    EXPECT_THAT(properties[1].sizes, IsEmpty());
    EXPECT_THAT(properties[1].values, IsEmpty());
    EXPECT_EQ(properties[1].valueKind, 0);
}

TEST_F(PropertyTypes, ConversionThatFailsFailsTheQuestionAndItsInterruptPasses) {
    property().dataType("Broken").rawValue("1");
    world.convertsToAny("Broken", [](const std::string&) -> std::string { throw 42; });
    EXPECT_THAT(infoOf("Leaf").getProperties({}), IsEmpty());
    world.convertsToAny("Broken", [](const std::string&) -> std::string { throw InterruptException(); });
    EXPECT_THROW(infoOf("Leaf").getProperties({}), InterruptException);
    EXPECT_EQ(world.handlesAlive(), 0U);
}

}  // namespace
