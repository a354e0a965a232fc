// The choice among the properties that one class declares.
#include "contextdata/property_visitor.h"

#include <utility>

#include "tests/unit/class_model_test.h"
#include "tests/unit/visitor_insides.h"

namespace {

using foundation::core::except::InterruptException;
using memory_host::Fault;
using memory_host::Service;
using testing::ElementsAre;
using testing::IsEmpty;
using visitor_insides::collectedOf;
using visitor_insides::hiddenOf;
using ZELKContextData::PropertyInfo;
using ZELKContextData::PropertyVisitorMutable;

class PropertyVisitor : public ClassModelTest {
protected:
    struct Lists {
        Names collected;
        Names hidden;
    };

    Lists visit(const char* visited, const PropertyInfo::GetOptions& options, const char* walked = nullptr) {
        const ClassInfo cls = infoOf(visited);
        PropertyVisitorMutable visitor(&cls);
        visitor.clear(options);
        world.cls(walked == nullptr ? visited : walked).object()->visitProperties(visitor);
        return {namesOf(collectedOf(visitor)), namesOf(hiddenOf(visitor))};
    }

    Names collect(const char* cls, const PropertyInfo::GetOptions& options) { return visit(cls, options).collected; }

    static PropertyInfo::GetOptions testing(std::vector<std::int32_t> accessKinds) {
        PropertyInfo::GetOptions options;
        options.accessKinds = std::move(accessKinds);
        return options;
    }
};

// Declaring class.

TEST_F(PropertyVisitor, OnlyWhatTheVisitedClassDeclaresIsTaken) {
    world.cls("Root").property("depth").property("kept").visibility(0);
    world.cls("Leaf").derives("Root").property("colour");
    const Lists ofLeaf = visit("Leaf", {});
    EXPECT_THAT(ofLeaf.collected, ElementsAre(u"colour"));
    EXPECT_THAT(ofLeaf.hidden, IsEmpty());
    const Lists ofRoot = visit("Root", {}, "Leaf");
    EXPECT_THAT(ofRoot.collected, ElementsAre(u"depth"));
    EXPECT_THAT(ofRoot.hidden, ElementsAre(u"kept"));
}

TEST_F(PropertyVisitor, PropertyOfNoKnownClassIsRejected) {
    world.cls("Leaf").property("colour");
    const ClassInfo leaf = infoOf("Leaf");
    const ClassInfo unknown{ResolvedClassID()};
    world.faults().failService(Service::classOfMember, Fault::nullAnswer);
    for (const ClassInfo* cls : {&leaf, &unknown}) {
        PropertyVisitorMutable visitor(cls);
        world.cls("Leaf").object()->visitProperties(visitor);
        EXPECT_THAT(collectedOf(visitor), IsEmpty());
        EXPECT_THAT(hiddenOf(visitor), IsEmpty());
    }
}

TEST_F(PropertyVisitor, NodeThatIsNoPropertyIsPassedOver) {
    world.cls("Leaf").method("fall").property("colour");
    const ClassInfo leaf = infoOf("Leaf");
    const zelk::COSInterfacePtr method = world.cls("Leaf").object()->findMethods(id("fall"))->nextElement();
    PropertyVisitorMutable visitor(&leaf);
    world.journal().clear();
    visitor.visit(method.get());
    visitor.visit(nullptr);
    visitor.visit(method, nullptr);
    EXPECT_THAT(collectedOf(visitor), IsEmpty());
    EXPECT_THAT(hiddenOf(visitor), IsEmpty());
    EXPECT_THAT(world.journal().calls(), IsEmpty());
}

// Access.

TEST_F(PropertyVisitor, AccessKindsSayWhichAccessIsTested) {
    world.cls("Leaf")
        .property("both")
        .property("read")
        .setAccess(2)
        .property("written")
        .getAccess(2)
        .property("none")
        .getAccess(2)
        .setAccess(2);
    EXPECT_THAT(collect("Leaf", testing({0})), ElementsAre(u"both", u"read"));
    EXPECT_THAT(collect("Leaf", testing({1})), ElementsAre(u"both", u"written"));
    EXPECT_THAT(collect("Leaf", testing({0, 1})), ElementsAre(u"both", u"read", u"written"));
    EXPECT_THAT(collect("Leaf", testing({1, 0})), ElementsAre(u"both", u"read", u"written"));
    EXPECT_THAT(collect("Leaf", testing({0, 0})), ElementsAre(u"both", u"read"));
}

TEST_F(PropertyVisitor, UnknownAccessKindsTestNothing) {
    world.cls("Leaf").property("colour");
    EXPECT_THAT(collect("Leaf", testing({2, 7, -1})), IsEmpty());
    EXPECT_EQ(world.journal().countOf(Service::propertyGetGetAccess), 0U);
    EXPECT_EQ(world.journal().countOf(Service::propertyGetSetAccess), 0U);
    EXPECT_THAT(collect("Leaf", testing({2, 1})), ElementsAre(u"colour"));
}

TEST_F(PropertyVisitor, EveryNamedAccessIsReadAndNoOther) {
    world.cls("Leaf").property("colour");
    world.faults().failService(Service::propertyGetSetAccess, Fault::standardException);
    EXPECT_THROW(collect("Leaf", testing({0, 1})), std::runtime_error) << "although reading alone would do";
    EXPECT_THAT(collect("Leaf", testing({0})), ElementsAre(u"colour"));
    world.faults().failService(Service::propertyGetGetAccess, Fault::standardException);
    EXPECT_THROW(collect("Leaf", testing({1, 0})), std::runtime_error) << "although writing alone would do";
    EXPECT_THAT(collect("Leaf", testing({1})), ElementsAre(u"colour"));
}

TEST_F(PropertyVisitor, AnyCodeOfTheListGivesAccess) {
    world.cls("Leaf")
        .property("a")
        .setAccess(9)
        .property("b")
        .getAccess(1)
        .setAccess(9)
        .property("c")
        .getAccess(3)
        .setAccess(5);
    PropertyInfo::GetOptions options;
    options.accessibility = {5, 1};
    EXPECT_THAT(collect("Leaf", options), ElementsAre(u"b", u"c"));
    options.accessibility = {};
    EXPECT_THAT(collect("Leaf", options), IsEmpty());
}

TEST_F(PropertyVisitor, WithoutAccessKindsTheAccessListsAloneDecide) {
    world.cls("Leaf").property("open").property("listed").readableBy("Gardener");
    const ClassInfo gardener = infoOf("Gardener");
    PropertyInfo::GetOptions options = testing({});
    EXPECT_THAT(collect("Leaf", options), IsEmpty());
    options.accessingClass = &gardener;
    EXPECT_THAT(collect("Leaf", options), ElementsAre(u"listed"));
}

TEST_F(PropertyVisitor, BothAccessListsCountWhateverAccessIsTested) {
    world.cls("Leaf")
        .property("read")
        .getAccess(2)
        .setAccess(2)
        .readableBy("Gardener")
        .property("written")
        .getAccess(2)
        .setAccess(2)
        .writableBy("Other")
        .writableBy("Gardener")
        .property("none")
        .getAccess(2)
        .setAccess(2)
        .readableBy("Other");
    const ClassInfo gardener = infoOf("Gardener");
    for (const std::vector<std::int32_t>& kinds : {std::vector<std::int32_t>{0}, {1}, {0, 1}, {}}) {
        PropertyInfo::GetOptions options = testing(kinds);
        EXPECT_THAT(collect("Leaf", options), IsEmpty()) << "nobody asks";
        options.accessingClass = &gardener;
        EXPECT_THAT(collect("Leaf", options), ElementsAre(u"read", u"written"));
    }
}

TEST_F(PropertyVisitor, ClassesBelowOneOnTheListHaveAccessAndThoseAboveHaveNot) {
    world.cls("Leaf").property("colour").getAccess(2).setAccess(2).readableBy("Gardener");
    world.cls("Trainee").derives("Gardener");
    world.cls("Gardener").derives("Person");
    PropertyInfo::GetOptions options;
    const ClassInfo trainee = infoOf("Trainee");
    options.accessingClass = &trainee;
    EXPECT_THAT(collect("Leaf", options), ElementsAre(u"colour"));
    const ClassInfo person = infoOf("Person");
    options.accessingClass = &person;
    EXPECT_THAT(collect("Leaf", options), IsEmpty());
}

TEST_F(PropertyVisitor, PropertyWithoutAccessIsInNeitherListAndNothingElseIsReadOfIt) {
    world.cls("Leaf").property("own").getAccess(2).setAccess(2).visibility(0).dataType("double");
    const Lists lists = visit("Leaf", {});
    EXPECT_THAT(lists.collected, IsEmpty());
    EXPECT_THAT(lists.hidden, IsEmpty());
    EXPECT_EQ(world.journal().countOf(Service::propertyGetDataType), 0U);
    EXPECT_EQ(world.journal().countOf(Service::propertyGetVisibility), 0U);
}

// Visibility.

TEST_F(PropertyVisitor, OnlyVisibilityOneIsShown) {
    world.cls("Leaf").property("a").property("b").visibility(0).property("c").visibility(2).property("d").visibility(
        -1);
    const Lists lists = visit("Leaf", {});
    EXPECT_THAT(lists.collected, ElementsAre(u"a"));
    EXPECT_THAT(lists.hidden, ElementsAre(u"b", u"c", u"d"));
}

TEST_F(PropertyVisitor, AskingForHiddenPropertiesCollectsThemAll) {
    world.cls("Leaf").property("a").property("b").visibility(0);
    PropertyInfo::GetOptions options;
    options.includeHidden = true;
    const Lists lists = visit("Leaf", options);
    EXPECT_THAT(lists.collected, ElementsAre(u"a", u"b"));
    EXPECT_THAT(lists.hidden, IsEmpty());
}

TEST_F(PropertyVisitor, HiddenPropertyHasTheWholeRecord) {
    world.cls("Leaf")
        .property("gr\xC3\xB6")
        .visibility(0)
        .readOnly()
        .customGetter()
        .stored(false)
        .dataType("set")
        .validation("pkg.Colour", {"1", ":"})
        .textValue("red")
        .rawValue("7");
    world.convertsToAny("set", [](const std::string& raw) { return "seven" + raw; });
    const ClassInfo leaf = infoOf("Leaf");
    PropertyVisitorMutable visitor(&leaf);
    world.cls("Leaf").object()->visitProperties(visitor);
    EXPECT_THAT(collectedOf(visitor), IsEmpty());
    ASSERT_EQ(hiddenOf(visitor).size(), 1U);
    const PropertyInfo& record = hiddenOf(visitor).front();
    EXPECT_EQ(record.name, u"gr\u00F6");
    EXPECT_EQ(record.typeName, u"pkg.Colour");
    EXPECT_THAT(record.sizes, ElementsAre(u"1", u":"));
    EXPECT_THAT(record.validators, IsEmpty());
    EXPECT_TRUE(record.readFlag);
    EXPECT_TRUE(record.hasCustomGetter);
    EXPECT_FALSE(record.extendedFlag);
    EXPECT_EQ(record.valueKind, PropertyInfo::convertedText);
    EXPECT_THAT(record.values, ElementsAre(u"red", u"seven7"));
}

// The flags that the class system reports.

TEST_F(PropertyVisitor, ReadFlagIsWhatTheClassSystemSaysAndIsNotTested) {
    world.cls("Leaf").property("fixed").readOnly().property("free").property("constant").setAccess(5);
    const std::vector<PropertyInfo> properties = infoOf("Leaf").getProperties({});
    ASSERT_EQ(properties.size(), 3U);
    EXPECT_TRUE(properties[0].readFlag);
    EXPECT_FALSE(properties[1].readFlag);
    EXPECT_FALSE(properties[2].readFlag);
}

TEST_F(PropertyVisitor, ExtendedFlagIsTrueWhereNothingIsKnown) {
    world.cls("Leaf")
        .property("plain")
        .property("stored")
        .stored(true)
        .property("computed")
        .stored(false)
        .property("untold")
        .stored(std::nullopt);
    const std::vector<PropertyInfo> properties = infoOf("Leaf").getProperties({});
    ASSERT_EQ(properties.size(), 4U);
    EXPECT_TRUE(properties[0].extendedFlag) << "no extended record";
    EXPECT_TRUE(properties[1].extendedFlag);
    EXPECT_FALSE(properties[2].extendedFlag);
    EXPECT_TRUE(properties[3].extendedFlag) << "the record cannot tell";
}

TEST_F(PropertyVisitor, ExtendedFlagIsTrueWhenTheHostFailsAtItAndTheInterruptPasses) {
    world.cls("Leaf").property("computed").stored(false);
    const ClassInfo leaf = infoOf("Leaf");
    for (const Fault fault : failuresButInterrupt) {
        world.faults().failService(Service::extendedQueryIsStored, fault);
        const std::vector<PropertyInfo> properties = leaf.getProperties({});
        ASSERT_EQ(properties.size(), 1U) << fault;
        EXPECT_TRUE(properties[0].extendedFlag) << fault;
    }
    world.faults().failService(Service::extendedQueryIsStored, Fault::interrupt);
    EXPECT_THROW(leaf.getProperties({}), InterruptException);
}

}  // namespace
