// The method visitor as an object: its options, its lists, its copies, and what the host throws at it.
#include <utility>

#include "contextdata/method_visitor.h"
#include "tests/unit/class_model_test.h"
#include "tests/unit/visitor_insides.h"

namespace {

using foundation::core::except::InterruptException;
using memory_host::Call;
using memory_host::Fault;
using memory_host::Service;
using testing::ElementsAre;
using testing::IsEmpty;
using visitor_insides::collectedOf;
using visitor_insides::hiddenOf;
using ZELKContextData::MethodInfo;
using ZELKContextData::MethodVisitorMutable;
using Context = MethodInfo::GetContext;

class MethodVisitorObject : public ClassModelTest {};

TEST_F(MethodVisitorObject, MethodIsReadInOneOrder) {
    world.cls("Leaf").method("fall").access(2).openTo("Leaf");
    const ClassInfo leaf = infoOf("Leaf");
    MethodInfo::GetOptions options = methodOptions();
    options.accessingClass = &leaf;
    MethodVisitorMutable visitor(&leaf);
    visitor.clear(options);
    world.journal().clear();
    world.cls("Leaf").object()->visitMethods(visitor);
    std::vector<Service> services;
    for (const Call& call : world.journal().calls()) {
        if (call.service != Service::toUstring) {
            services.push_back(call.service);
        }
    }
    EXPECT_THAT(services, ElementsAre(Service::classVisitMethods, Service::methodGetName, Service::classOfMember,
                                      Service::classGetID, Service::methodGetAccess, Service::methodGetAccessList,
                                      Service::methodGetVisibility, Service::methodIsStatic));
}

/// Keeps what the generic entry hands on.
class Watching final : public MethodVisitorMutable {
public:
    using MethodVisitorMutable::clear;
    using MethodVisitorMutable::hasAccessingClass;
    using MethodVisitorMutable::MethodVisitorMutable;
    using MethodVisitorMutable::visit;

    void visit(zelk::COSInterfacePtr handle, zelk::COSMethodInfo* method) override {
        handles.push_back(handle);
        methods.push_back(method);
        MethodVisitorMutable::visit(handle, method);
    }

    std::vector<zelk::COSInterfacePtr> handles;
    std::vector<zelk::COSMethodInfo*> methods;
};

TEST_F(MethodVisitorObject, GenericEntryHandsOnAHandleAndTheMethodUntested) {
    world.cls("Leaf").method("fall").property("colour");
    const ClassInfo leaf = infoOf("Leaf");
    const zelk::COSInterfacePtr method = world.cls("Leaf").object()->findMethods(id("fall"))->nextElement();
    const zelk::COSInterfacePtr property = world.cls("Leaf").object()->findProperty(id("colour"));
    Watching visitor(&leaf);
    visitor.visit(method.get());
    visitor.visit(property.get());
    visitor.visit(nullptr);
    EXPECT_THAT(visitor.handles, ElementsAre(method, property, zelk::COSInterfacePtr()));
    EXPECT_THAT(visitor.methods, ElementsAre(zelk::cosiToMethod(method.get()), nullptr, nullptr));
    visitor.handles.clear();
    EXPECT_EQ(world.handlesAlive(), 2U) << "the visitor itself keeps no handle";
}

TEST_F(MethodVisitorObject, NewOptionsEmptyTheListsAndReplaceEveryWish) {
    world.cls("pkg.Money")
        .method("Money")
        .method("plus")
        .method("kept")
        .visibility(0)
        .method("own")
        .access(2)
        .openTo("pkg.Money");
    const ClassInfo money = infoOf("pkg.Money");
    MethodVisitorMutable visitor(&money);
    const MethodInfo::GetOptions everything{{0, 2}, &money, Context::anyPosition, true, true, true};
    visitor.clear(everything);
    world.cls("pkg.Money").object()->visitMethods(visitor);
    EXPECT_THAT(namesOf(collectedOf(visitor)), ElementsAre(u"Money", u"plus", u"kept", u"own"));
    visitor.clear(methodOptions());
    EXPECT_THAT(collectedOf(visitor), IsEmpty());
    EXPECT_THAT(hiddenOf(visitor), IsEmpty());
    world.cls("pkg.Money").object()->visitMethods(visitor);
    EXPECT_THAT(collectedOf(visitor), IsEmpty());
    EXPECT_THAT(namesOf(hiddenOf(visitor)), ElementsAre(u"kept"));
}

TEST_F(MethodVisitorObject, EmptyingTheListsAloneKeepsTheOptions) {
    world.cls("Leaf").method("fall").method("kept").visibility(0);
    const ClassInfo leaf = infoOf("Leaf");
    Watching visitor(&leaf);
    visitor.clear(methodOptions());
    for (int time = 0; time < 2; ++time) {
        world.cls("Leaf").object()->visitMethods(visitor);
        EXPECT_THAT(namesOf(collectedOf(visitor)), ElementsAre(u"fall"));
        EXPECT_THAT(namesOf(hiddenOf(visitor)), ElementsAre(u"kept"));
        visitor.clear();
        EXPECT_THAT(collectedOf(visitor), IsEmpty());
        EXPECT_THAT(hiddenOf(visitor), IsEmpty());
    }
}

TEST_F(MethodVisitorObject, ListsGrowUntilTheyAreEmptied) {
    world.cls("Leaf").method("fall");
    const ClassInfo leaf = infoOf("Leaf");
    MethodVisitorMutable visitor(&leaf);
    visitor.clear(methodOptions());
    world.cls("Leaf").object()->visitMethods(visitor);
    world.cls("Leaf").object()->visitMethods(visitor);
    EXPECT_THAT(namesOf(collectedOf(visitor)), ElementsAre(u"fall", u"fall"));
}

TEST_F(MethodVisitorObject, CopiesAndMovesCarryListsOptionsAndTheVisitedClass) {
    world.cls("Leaf").method("fall").method("kept").visibility(0);
    const ClassInfo leaf = infoOf("Leaf");
    MethodVisitorMutable visitor(&leaf);
    visitor.clear(methodOptions());
    world.cls("Leaf").object()->visitMethods(visitor);
    MethodVisitorMutable copy(visitor);
    MethodVisitorMutable moved(std::move(visitor));
    MethodVisitorMutable assigned(nullptr);
    assigned = copy;
    for (MethodVisitorMutable* each : {&copy, &moved, &assigned}) {
        EXPECT_THAT(namesOf(collectedOf(*each)), ElementsAre(u"fall"));
        EXPECT_THAT(namesOf(hiddenOf(*each)), ElementsAre(u"kept"));
        world.cls("Leaf").object()->visitMethods(*each);
        EXPECT_THAT(namesOf(collectedOf(*each)), ElementsAre(u"fall", u"fall"));
    }
    assigned = std::move(moved);
    EXPECT_THAT(namesOf(hiddenOf(assigned)), ElementsAre(u"kept", u"kept"));
}

TEST_F(MethodVisitorObject, AccessListTestAloneWorksForDerivedVisitors) {
    world.cls("Leaf").method("fall").openTo("Gardener").method("sway");
    world.cls("Gardener");
    const ClassInfo leaf = infoOf("Leaf");
    const ClassInfo gardener = infoOf("Gardener");
    const zelk::COSInterfacePtr fall = world.cls("Leaf").object()->findMethods(id("fall"))->nextElement();
    const zelk::COSInterfacePtr sway = world.cls("Leaf").object()->findMethods(id("sway"))->nextElement();
    Watching visitor(&leaf);
    EXPECT_FALSE(visitor.hasAccessingClass(zelk::cosiToMethod(fall.get())));
    MethodInfo::GetOptions options;
    options.accessingClass = &gardener;
    visitor.clear(options);
    EXPECT_TRUE(visitor.hasAccessingClass(zelk::cosiToMethod(fall.get())));
    EXPECT_FALSE(visitor.hasAccessingClass(zelk::cosiToMethod(sway.get())));
}

TEST_F(MethodVisitorObject, WhatTheHostThrowsPassesOut) {
    world.cls("Leaf").method("fall").access(2).openTo("Leaf");
    const ClassInfo leaf = infoOf("Leaf");
    MethodInfo::GetOptions options = methodOptions();
    options.accessingClass = &leaf;
    MethodVisitorMutable visitor(&leaf);
    visitor.clear(options);
    for (const Service service :
         {Service::methodGetName, Service::classOfMember, Service::classGetID, Service::methodGetAccess,
          Service::methodGetAccessList, Service::methodGetVisibility, Service::methodIsStatic, Service::toUstring}) {
        world.faults().failService(service, 1, Fault::standardException);
        EXPECT_THROW(world.cls("Leaf").object()->visitMethods(visitor), std::runtime_error) << nameOf(service);
        world.faults().failService(service, 1, Fault::interrupt);
        EXPECT_THROW(world.cls("Leaf").object()->visitMethods(visitor), InterruptException) << nameOf(service);
        EXPECT_THAT(collectedOf(visitor), IsEmpty());
        EXPECT_EQ(world.handlesAlive(), 0U);
    }
}

}  // namespace
