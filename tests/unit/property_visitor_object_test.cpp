// The property visitor as an object: its options, its lists, its copies, and what the host throws at it.
#include <utility>

#include "contextdata/property_visitor.h"
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

class PropertyVisitorObject : public ClassModelTest {};

TEST_F(PropertyVisitorObject, VisitorThatWasOnlyMadeTakesWhatIsPublicToReadOrToWrite) {
    world.cls("Leaf")
        .property("read")
        .setAccess(2)
        .property("written")
        .getAccess(2)
        .property("none")
        .getAccess(2)
        .setAccess(2);
    world.cls("Leaf").property("kept").visibility(0);
    const ClassInfo leaf = infoOf("Leaf");
    PropertyVisitorMutable visitor(&leaf);
    EXPECT_THAT(collectedOf(visitor), IsEmpty());
    EXPECT_THAT(hiddenOf(visitor), IsEmpty());
    world.cls("Leaf").object()->visitProperties(visitor);
    EXPECT_THAT(namesOf(collectedOf(visitor)), ElementsAre(u"read", u"written"));
    EXPECT_THAT(namesOf(hiddenOf(visitor)), ElementsAre(u"kept"));
}

/// Keeps what the generic entry hands on.
class Watching final : public PropertyVisitorMutable {
public:
    using PropertyVisitorMutable::clear;
    using PropertyVisitorMutable::hasAccessingClass;
    using PropertyVisitorMutable::PropertyVisitorMutable;
    using PropertyVisitorMutable::visit;

    void visit(zelk::COSInterfacePtr handle, zelk::COSPropInfo* property) override {
        handles.push_back(handle);
        properties.push_back(property);
        PropertyVisitorMutable::visit(handle, property);
    }

    std::vector<zelk::COSInterfacePtr> handles;
    std::vector<zelk::COSPropInfo*> properties;
};

TEST_F(PropertyVisitorObject, GenericEntryHandsOnAHandleAndThePropertyUntested) {
    world.cls("Leaf").method("fall").property("colour");
    const ClassInfo leaf = infoOf("Leaf");
    const zelk::COSInterfacePtr method = world.cls("Leaf").object()->findMethods(id("fall"))->nextElement();
    const zelk::COSInterfacePtr property = world.cls("Leaf").object()->findProperty(id("colour"));
    Watching visitor(&leaf);
    visitor.visit(property.get());
    visitor.visit(method.get());
    visitor.visit(nullptr);
    EXPECT_THAT(visitor.handles, ElementsAre(property, method, zelk::COSInterfacePtr()));
    EXPECT_THAT(visitor.properties, ElementsAre(zelk::cosiToProp(property.get()), nullptr, nullptr));
    visitor.handles.clear();
    EXPECT_EQ(world.handlesAlive(), 2U) << "the visitor itself keeps no handle";
}

TEST_F(PropertyVisitorObject, NewOptionsEmptyTheListsAndReplaceEveryWish) {
    world.cls("Leaf")
        .property("own")
        .getAccess(2)
        .setAccess(3)
        .property("kept")
        .visibility(0)
        .property("listed")
        .getAccess(4);
    world.cls("Leaf").readableBy("Leaf").setAccess(4);
    const ClassInfo leaf = infoOf("Leaf");
    PropertyVisitorMutable visitor(&leaf);
    visitor.clear({{0, 2}, {0}, &leaf, true});
    world.cls("Leaf").object()->visitProperties(visitor);
    EXPECT_THAT(namesOf(collectedOf(visitor)), ElementsAre(u"own", u"kept", u"listed"));
    visitor.clear({{0, 2}, {1}, nullptr, false});
    EXPECT_THAT(collectedOf(visitor), IsEmpty());
    EXPECT_THAT(hiddenOf(visitor), IsEmpty());
    world.cls("Leaf").object()->visitProperties(visitor);
    EXPECT_THAT(collectedOf(visitor), IsEmpty());
    EXPECT_THAT(namesOf(hiddenOf(visitor)), ElementsAre(u"kept"));
}

TEST_F(PropertyVisitorObject, EmptyingTheListsAloneKeepsTheOptions) {
    world.cls("Leaf").property("colour").getAccess(7).setAccess(7).property("kept").visibility(0);
    const ClassInfo leaf = infoOf("Leaf");
    Watching visitor(&leaf);
    visitor.clear({{0, 7}, {0}, nullptr, false});
    for (int time = 0; time < 2; ++time) {
        world.cls("Leaf").object()->visitProperties(visitor);
        EXPECT_THAT(namesOf(collectedOf(visitor)), ElementsAre(u"colour"));
        EXPECT_THAT(namesOf(hiddenOf(visitor)), ElementsAre(u"kept"));
        visitor.clear();
        EXPECT_THAT(collectedOf(visitor), IsEmpty());
        EXPECT_THAT(hiddenOf(visitor), IsEmpty());
    }
}

TEST_F(PropertyVisitorObject, CopiesAndMovesCarryListsOptionsAndTheVisitedClass) {
    world.cls("Leaf").property("colour").getAccess(7).setAccess(7).property("kept").visibility(0);
    const ClassInfo leaf = infoOf("Leaf");
    PropertyVisitorMutable visitor(&leaf);
    visitor.clear({{0, 7}, {0}, nullptr, false});
    world.cls("Leaf").object()->visitProperties(visitor);
    PropertyVisitorMutable copy(visitor);
    PropertyVisitorMutable moved(std::move(visitor));
    PropertyVisitorMutable assigned(nullptr);
    assigned = copy;
    for (PropertyVisitorMutable* each : {&copy, &moved, &assigned}) {
        EXPECT_THAT(namesOf(collectedOf(*each)), ElementsAre(u"colour"));
        EXPECT_THAT(namesOf(hiddenOf(*each)), ElementsAre(u"kept"));
        world.cls("Leaf").object()->visitProperties(*each);
        EXPECT_THAT(namesOf(collectedOf(*each)), ElementsAre(u"colour", u"colour"));
    }
}

TEST_F(PropertyVisitorObject, AccessListTestAloneWorksForDerivedVisitors) {
    world.cls("Leaf").property("colour").writableBy("Gardener").property("size");
    const ClassInfo leaf = infoOf("Leaf");
    const ClassInfo gardener = infoOf("Gardener");
    const zelk::COSInterfacePtr colour = world.cls("Leaf").object()->findProperty(id("colour"));
    const zelk::COSInterfacePtr size = world.cls("Leaf").object()->findProperty(id("size"));
    Watching visitor(&leaf);
    EXPECT_FALSE(visitor.hasAccessingClass(zelk::cosiToProp(colour.get())));
    visitor.clear({{0}, {0}, &gardener, false});
    EXPECT_TRUE(visitor.hasAccessingClass(zelk::cosiToProp(colour.get())));
    EXPECT_FALSE(visitor.hasAccessingClass(zelk::cosiToProp(size.get())));
}

TEST_F(PropertyVisitorObject, WhatTheHostThrowsWhileAPropertyIsReadPassesOut) {
    world.cls("Leaf").property("colour").getAccess(2).setAccess(2).writableBy("Leaf").dataType("double");
    const ClassInfo leaf = infoOf("Leaf");
    PropertyVisitorMutable visitor(&leaf);
    visitor.clear({{0}, {0, 1}, &leaf, false});
    for (const Service service :
         {Service::propertyGetName, Service::classOfMember, Service::classGetID, Service::propertyGetGetAccess,
          Service::propertyGetSetAccess, Service::propertyGetGetAccessList, Service::propertyGetSetAccessList,
          Service::propertyGetDataType, Service::validationTypeGet, Service::dataTypeGetID,
          Service::dataTypeHasValueList, Service::toUstring, Service::propertyIsReadOnly,
          Service::propertyGetVisibility}) {
        world.faults().failService(service, 1, Fault::standardException);
        EXPECT_THROW(world.cls("Leaf").object()->visitProperties(visitor), std::runtime_error) << nameOf(service);
        world.faults().failService(service, 1, Fault::interrupt);
        EXPECT_THROW(world.cls("Leaf").object()->visitProperties(visitor), InterruptException) << nameOf(service);
        EXPECT_THAT(collectedOf(visitor), IsEmpty());
        EXPECT_EQ(world.handlesAlive(), 0U);
    }
}

}  // namespace
