// The walks that collect member names of one class.
#include "contextdata/member_names.h"

#include "tests/support/world_test.h"

namespace {

using foundation::core::except::InterruptException;
using memory_host::ClassBuilder;
using memory_host::Fault;
using memory_host::Service;
using testing::ElementsAre;
using testing::IsEmpty;
using ZELKIntrospection::DesiredPropertyAttributes;
using ZELKIntrospection::eitherSideDesiredPropertyAttributes;
using ZELKIntrospection::leftHandSideDesiredPropertyAttributes;
using ZELKIntrospection::rightHandSideDesiredPropertyAttributes;

class MemberNamesTest : public WorldTest {
protected:
    static Names methods(const ClassBuilder& cls, int staticSelection, int flagSelection = 1) {
        Names names;
        ZELKIntrospection::getClassMethodNames(cls.object(), names, staticSelection, flagSelection);
        return names;
    }

    static Names properties(const ClassBuilder& cls, const DesiredPropertyAttributes& desired) {
        Names names;
        ZELKIntrospection::getClassPropertyNames(cls.object(), names, desired);
        return names;
    }

    static Names objectProperties(const qxUniqueArray& value) {
        Names names;
        ZELKIntrospection::getObjectPropertyNames(value.get(), names);
        return names;
    }
};

// Methods.

TEST_F(MemberNamesTest, StaticSelectionPicksMethods) {
    const ClassBuilder cls = world.cls("bank.Account").method("deposit").method("open").isStatic();
    EXPECT_THAT(methods(cls, 0), ElementsAre(u"deposit", u"open"));
    EXPECT_THAT(methods(cls, 1), ElementsAre(u"open"));
    EXPECT_THAT(methods(cls, -1), ElementsAre(u"deposit"));
}

TEST_F(MemberNamesTest, UnknownStaticSelectionListsNothing) {
    const ClassBuilder cls = world.cls("bank.Account").method("deposit").method("open").isStatic();
    for (const int selection : {2, -2, 3}) {
        EXPECT_THAT(methods(cls, selection), IsEmpty()) << selection;
    }
    EXPECT_EQ(world.journal().countOf(Service::classVisitMethods), 0U);
}

TEST_F(MemberNamesTest, FlagSelectionPicksListableMethodsOrTheOthers) {
    const ClassBuilder cls = world.cls("bank.Account").method("deposit").method("audit").unlistable();
    EXPECT_THAT(methods(cls, 0, 0), ElementsAre(u"deposit", u"audit"));
    EXPECT_THAT(methods(cls, 0, 1), ElementsAre(u"deposit"));
    EXPECT_THAT(methods(cls, 0, -1), ElementsAre(u"audit"));
    EXPECT_THAT(methods(cls, 0, 2), IsEmpty());
    EXPECT_THAT(methods(cls, 0, -2), IsEmpty());
}

TEST_F(MemberNamesTest, OnlyPublicMethodsAreListed) {
    const ClassBuilder cls =
        world.cls("bank.Account").method("deposit").method("audit").access(1).method("x").access(2);
    EXPECT_THAT(methods(cls, 0), ElementsAre(u"deposit"));
}

TEST_F(MemberNamesTest, ConstructorIsNeverListed) {
    EXPECT_THAT(methods(world.cls("bank.Account").method("Account").method("deposit"), 0), ElementsAre(u"deposit"));
    EXPECT_THAT(methods(world.cls("Plain").method("Plain").method("deposit"), 0), ElementsAre(u"deposit"));
}

TEST_F(MemberNamesTest, ConstructorIsTheWholeLastPartOfTheDefiningClassesName) {
    const ClassBuilder cls = world.cls("bank.BigAccount").method("Account").method("bank").method("bank.BigAccount");
    EXPECT_THAT(methods(cls, 0), ElementsAre(u"Account", u"bank", u"bank.BigAccount"));
}

TEST_F(MemberNamesTest, InheritedConstructorIsToldByItsOwnClass) {
    world.cls("bank.Account").method("Account").method("Savings");
    const ClassBuilder cls = world.cls("bank.Savings").derives("bank.Account").method("Savings");
    EXPECT_THAT(methods(cls, 0), ElementsAre(u"Savings"));  // the base's method of that name is no constructor
}

TEST_F(MemberNamesTest, ConstructorIsNotRemembered) {
    // Skipped entirely: it does not spoil its name for a method that comes later.
    world.cls("bank.Base").method("Account");
    const ClassBuilder cls = world.cls("bank.Account").derives("bank.Base").method("Account");
    EXPECT_THAT(methods(cls, 0), ElementsAre(u"Account"));
}

TEST_F(MemberNamesTest, OverloadsGiveOneEntry) {
    EXPECT_THAT(methods(world.cls("bank.Account").method("pay").method("pay"), 0), ElementsAre(u"pay"));
}

TEST_F(MemberNamesTest, FirstMethodOfANameDecidesForAllOfThem) {
    const ClassBuilder hidden = world.cls("a.A").method("pay").access(1).method("pay");
    EXPECT_THAT(methods(hidden, 0), IsEmpty());
    const ClassBuilder mixed = world.cls("a.B").method("pay").isStatic().method("pay");
    EXPECT_THAT(methods(mixed, -1), IsEmpty());
    EXPECT_THAT(methods(mixed, 1), ElementsAre(u"pay"));
}

TEST_F(MemberNamesTest, RejectedMethodHidesAnInheritedOneOfItsName) {
    world.cls("bank.Account").method("pay").method("close");
    const ClassBuilder cls = world.cls("bank.Frozen").derives("bank.Account").method("pay").access(2);
    EXPECT_THAT(methods(cls, 0), ElementsAre(u"close"));
}

TEST_F(MemberNamesTest, NamesComeInTheOrderOfTheWalkAfterThoseAlreadyThere) {
    const ClassBuilder cls = world.cls("bank.Account").method("zeta").method("alpha");
    Names names = {u"kept", u"alpha"};
    ZELKIntrospection::getClassMethodNames(cls.object(), names, 0, 1);
    EXPECT_THAT(names, ElementsAre(u"kept", u"alpha", u"zeta", u"alpha"));
}

TEST_F(MemberNamesTest, RoomForAFewNamesIsMadeOnce) {
    Names names;
    ZELKIntrospection::getClassMethodNames(world.cls("bank.Account").object(), names, 0, 1);
    EXPECT_GE(names.capacity(), 32U);
    Names roomy;
    roomy.reserve(100);
    const std::u16string* storage = roomy.data();
    ZELKIntrospection::getClassMethodNames(world.cls("bank.Account").method("pay").object(), roomy, 0, 1);
    EXPECT_EQ(roomy.data(), storage);
}

TEST_F(MemberNamesTest, NullAndUndefinedClassesHaveNoMethodNames) {
    Names names;
    ZELKIntrospection::getClassMethodNames(nullptr, names, 0, 1);
    ZELKIntrospection::getClassMethodNames(world.cls("bank.Draft").undefined().method("pay").object(), names, 0, 1);
    EXPECT_THAT(names, IsEmpty());
    EXPECT_EQ(names.capacity(), 0U);
}

TEST_F(MemberNamesTest, LongAndManyNamesAreToldApart) {
    ClassBuilder cls = world.cls("bank.Account");
    Names expected;
    for (int number = 0; number < 3000; ++number) {
        const std::string name = "methodWithARatherLongNameNumber" + std::to_string(number);
        cls.method(name).method(name);
        expected.emplace_back(name.begin(), name.end());
    }
    EXPECT_EQ(methods(cls, 0), expected);
}

TEST_F(MemberNamesTest, FailureDuringTheMethodWalkPassesAndLeavesTheNamesSoFar) {
    const ClassBuilder cls = world.cls("bank.Account").method("first").method("second");
    for (const Service service : {Service::methodGetName, Service::toUstring, Service::methodGetAccess,
                                  Service::methodIsListable, Service::classOfMember}) {
        Names names = {u"kept"};
        world.faults().failService(service, 2, Fault::standardException);
        EXPECT_THROW(ZELKIntrospection::getClassMethodNames(cls.object(), names, 0, 1), std::runtime_error)
            << nameOf(service);
        EXPECT_THAT(names, ElementsAre(u"kept", u"first")) << nameOf(service);
        world.faults().failService(service, Fault::interrupt);
        EXPECT_THROW(ZELKIntrospection::getClassMethodNames(cls.object(), names, 0, 1), InterruptException);
    }
    EXPECT_EQ(world.handlesAlive(), 0U);
}

TEST_F(MemberNamesTest, NameOfADefiningClassIsAskedOnceForMethodsInARow) {
    world.cls("bank.Base").method("third").method("Base").method("fourth");
    const ClassBuilder cls =
        world.cls("bank.Account").derives("bank.Base").method("first").method("Account").method("second");
    EXPECT_THAT(methods(cls, 0), ElementsAre(u"first", u"second", u"third", u"fourth"));
    EXPECT_EQ(world.journal().countOf(Service::classGetName), 2U);
    Names names;
    world.faults().failService(Service::classGetName, 2, Fault::standardException);
    EXPECT_THROW(ZELKIntrospection::getClassMethodNames(cls.object(), names, 0, 1), std::runtime_error);
    EXPECT_THAT(names, ElementsAre(u"first", u"second"));
}

TEST_F(MemberNamesTest, MethodWithoutADefiningClassIsNoConstructor) {
    const ClassBuilder cls = world.cls("bank.Account").method("Account");
    world.faults().failService(Service::classOfMember, Fault::nullAnswer);
    EXPECT_THAT(methods(cls, 0), ElementsAre(u"Account"));
}

// Properties.

TEST_F(MemberNamesTest, SidesOfAnAssignmentAreThreeConstants) {
    const auto fields = [](const DesiredPropertyAttributes& desired) {
        return std::vector{desired.getAccessSelection, desired.setAccessSelection, desired.setAccessFiveSelection,
                           desired.propertyFlagSelection};
    };
    EXPECT_THAT(fields(leftHandSideDesiredPropertyAttributes), ElementsAre(2, 0, 1, 1));
    EXPECT_THAT(fields(rightHandSideDesiredPropertyAttributes), ElementsAre(0, 2, 2, 1));
    EXPECT_THAT(fields(eitherSideDesiredPropertyAttributes), ElementsAre(2, 2, 2, 1));
}

TEST_F(MemberNamesTest, PubliclyReadPropertyIsOfferedOnTheRightOnly) {
    const ClassBuilder cls = world.cls("bank.Account").property("balance").setAccess(2);
    EXPECT_THAT(properties(cls, leftHandSideDesiredPropertyAttributes), IsEmpty());
    EXPECT_THAT(properties(cls, rightHandSideDesiredPropertyAttributes), ElementsAre(u"balance"));
    EXPECT_THAT(properties(cls, eitherSideDesiredPropertyAttributes), ElementsAre(u"balance"));
}

TEST_F(MemberNamesTest, PubliclyAssignedPropertyIsOfferedOnTheLeftOnly) {
    const ClassBuilder cls = world.cls("bank.Account").property("pin").getAccess(2);
    EXPECT_THAT(properties(cls, leftHandSideDesiredPropertyAttributes), ElementsAre(u"pin"));
    EXPECT_THAT(properties(cls, rightHandSideDesiredPropertyAttributes), IsEmpty());
    EXPECT_THAT(properties(cls, eitherSideDesiredPropertyAttributes), ElementsAre(u"pin"));
}

TEST_F(MemberNamesTest, PropertyThatNobodyMayTouchIsNotOffered) {
    const ClassBuilder cls = world.cls("bank.Account").property("key").getAccess(1).setAccess(2);
    EXPECT_THAT(properties(cls, eitherSideDesiredPropertyAttributes), IsEmpty());
}

TEST_F(MemberNamesTest, WishesForBothAccessesAreMetByEither) {
    const ClassBuilder cls = world.cls("bank.Account")
                                 .property("read")
                                 .setAccess(1)
                                 .property("write")
                                 .getAccess(1)
                                 .property("none")
                                 .getAccess(1);
    EXPECT_THAT(properties(cls, {0, 0, 2, 2}), ElementsAre(u"read", u"write", u"none"));
    world.cls("bank.Account").setAccess(1);
    EXPECT_THAT(properties(cls, {0, 0, 2, 2}), ElementsAre(u"read", u"write"));
}

TEST_F(MemberNamesTest, UnknownSelectionFailsItsOwnBranchOnly) {
    const ClassBuilder cls = world.cls("bank.Account").property("balance");
    EXPECT_THAT(properties(cls, {1, 0, 2, 2}), ElementsAre(u"balance"));
    EXPECT_THAT(properties(cls, {0, 1, 2, 2}), ElementsAre(u"balance"));
    EXPECT_THAT(properties(cls, {1, 1, 2, 2}), IsEmpty());
    EXPECT_THAT(properties(cls, {2, 1, 2, 2}), IsEmpty());
    EXPECT_THAT(properties(cls, {2, 2, 3, 2}), IsEmpty());
    EXPECT_THAT(properties(cls, {2, 2, 2, 3}), IsEmpty());
    EXPECT_THAT(properties(cls, {2, 2, -1, 2}), IsEmpty());
}

TEST_F(MemberNamesTest, ConstantsAreSelectedByTheirSetAccess) {
    const ClassBuilder cls = world.cls("bank.Account").property("balance").constant("limit");
    EXPECT_THAT(properties(cls, {2, 2, 0, 1}), ElementsAre(u"limit"));
    EXPECT_THAT(properties(cls, {2, 2, 1, 1}), ElementsAre(u"balance"));
    EXPECT_THAT(properties(cls, {2, 2, 2, 1}), ElementsAre(u"balance", u"limit"));
}

TEST_F(MemberNamesTest, ListabilityOfPropertiesIsSelected) {
    const ClassBuilder cls = world.cls("bank.Account").property("balance").property("audit").unlistable();
    EXPECT_THAT(properties(cls, {2, 2, 2, 0}), ElementsAre(u"audit"));
    EXPECT_THAT(properties(cls, {2, 2, 2, 1}), ElementsAre(u"balance"));
    EXPECT_THAT(properties(cls, {2, 2, 2, 2}), ElementsAre(u"balance", u"audit"));
}

TEST_F(MemberNamesTest, RepeatedPropertiesStayRepeated) {
    world.cls("bank.Account").property("balance");
    const ClassBuilder cls = world.cls("bank.Savings").derives("bank.Account").property("balance");
    EXPECT_THAT(properties(cls, eitherSideDesiredPropertyAttributes), ElementsAre(u"balance", u"balance"));
}

TEST_F(MemberNamesTest, PropertiesNeedNoDefinition) {
    const ClassBuilder cls = world.cls("bank.Draft").undefined().property("balance");
    EXPECT_THAT(properties(cls, eitherSideDesiredPropertyAttributes), ElementsAre(u"balance"));
    EXPECT_EQ(world.journal().countOf(Service::classGetDefinition), 0U);
}

TEST_F(MemberNamesTest, FailureDuringThePropertyWalkPassesAndLeavesTheNamesSoFar) {
    ClassBuilder cls = world.cls("bank.Account");
    cls.property("first").setAccess(1).property("second").setAccess(1);
    for (const Service service : {Service::propertyGetName, Service::toUstring, Service::propertyGetGetAccess,
                                  Service::propertyGetSetAccess, Service::propertyIsListable}) {
        Names names = {u"kept"};
        world.faults().failService(service, 2, Fault::standardException);
        EXPECT_THROW(ZELKIntrospection::getClassPropertyNames(cls.object(), names, eitherSideDesiredPropertyAttributes),
                     std::runtime_error);
        EXPECT_THAT(names, ElementsAre(u"kept", u"first")) << nameOf(service);
    }
    EXPECT_EQ(world.handlesAlive(), 0U);
}

// Properties of an object.

TEST_F(MemberNamesTest, ObjectThatKnowsItsPropertiesIsNotWalked) {
    world.cls("bank.Account").property("balance");
    const qxUniqueArray account = world.object("bank.Account");
    world.function("properties", [this](const qxArray*) { return world.cell({u"own", u"own", u"more"}); });
    EXPECT_THAT(objectProperties(account), ElementsAre(u"own", u"own", u"more"));
    EXPECT_EQ(world.journal().countOf(Service::classVisitProperties), 0U);
}

TEST_F(MemberNamesTest, ObjectThatHasNoPropertiesSaysSo) {
    world.cls("bank.Account").property("balance");
    const qxUniqueArray account = world.object("bank.Account");
    world.function("properties", [this](const qxArray*) { return world.cell({}); });
    EXPECT_THAT(objectProperties(account), IsEmpty());
}

TEST_F(MemberNamesTest, ObjectThatCannotBeAskedIsListedByItsClass) {
    world.cls("bank.Account").property("balance").property("key").getAccess(1).setAccess(1).constant("limit");
    const qxUniqueArray account = world.object("bank.Account");
    EXPECT_THAT(objectProperties(account), ElementsAre(u"balance", u"limit"));
    world.function("properties", [this](const qxArray*) { return world.number(1); });
    EXPECT_THAT(objectProperties(account), ElementsAre(u"balance", u"limit"));
}

TEST_F(MemberNamesTest, InterruptInsideThePropertiesFunctionIsSwallowedAndTheClassAnswers) {
    world.cls("bank.Account").property("balance");
    const qxUniqueArray account = world.object("bank.Account");
    world.faults().failService(Service::inCallFcn, Fault::interrupt);
    EXPECT_THAT(objectProperties(account), ElementsAre(u"balance"));
}

TEST_F(MemberNamesTest, ValueOfNoClassThatCannotBeAskedHasNoProperties) {
    EXPECT_THAT(objectProperties(world.opaque("thing")), IsEmpty());
}

}  // namespace
