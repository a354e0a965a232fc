// Whether a class has a method or a property of a name.
#include "contextdata/introspection.h"
#include "tests/support/world_test.h"

namespace {

using foundation::core::except::InterruptException;
using memory_host::Fault;
using memory_host::Service;
using ZELKContextData::ResolvedClassID;
using ZELKIntrospection::hasMethod;
using ZELKIntrospection::hasProperty;

class MemberTestsTest : public WorldTest {
protected:
    static ResolvedClassID known(const char* name) {
        return ResolvedClassID::fromKnownResolvedClassID(std::string(name));
    }

    bool flag = false;
};

TEST_F(MemberTestsTest, FlagTellsAStaticMethodFromAnOrdinaryOne) {
    world.cls("bank.Account").method("open").isStatic().method("deposit");
    EXPECT_TRUE(hasMethod(known("bank.Account"), "open", flag));
    EXPECT_TRUE(flag);
    EXPECT_TRUE(hasMethod(std::u16string(u"bank.Account"), "deposit", flag));
    EXPECT_FALSE(flag);
}

TEST_F(MemberTestsTest, FirstOverloadDecidesTheFlag) {
    world.cls("bank.Account").method("pay").isStatic().method("pay");
    EXPECT_TRUE(hasMethod(known("bank.Account"), "pay", flag));
    EXPECT_TRUE(flag);
    EXPECT_EQ(world.journal().countOf(Service::classFindMethods), 2U);
}

TEST_F(MemberTestsTest, FlagIsUntouchedWhenThereIsNoSuchMethodOrClass) {
    world.cls("bank.Account");
    for (const bool before : {false, true}) {
        flag = before;
        EXPECT_FALSE(hasMethod(known("bank.Account"), "fly", flag));
        EXPECT_FALSE(hasMethod(known("no.such.Class"), "fly", flag));
        EXPECT_FALSE(hasMethod(std::u16string(u"no.such.Class"), "fly", flag));
        EXPECT_EQ(flag, before);
    }
}

TEST_F(MemberTestsTest, FirstNodeOfANameThatIsNoMethodIsNoneAndLeavesTheFlag) {
    world.cls("bank.Account").foreignNodeAmongMethods("pay").method("pay").isStatic();
    for (const bool before : {false, true}) {
        flag = before;
        EXPECT_FALSE(hasMethod(known("bank.Account"), "pay", flag));
        EXPECT_FALSE(hasMethod(std::u16string(u"bank.Account"), "pay", flag));
        EXPECT_EQ(flag, before);
    }
    EXPECT_EQ(world.handlesAlive(), 0U);
}

TEST_F(MemberTestsTest, ClassWithoutDefinitionHasNoMethods) {
    world.cls("bank.Draft").undefined().method("pay");
    EXPECT_FALSE(hasMethod(known("bank.Draft"), "pay", flag));
    EXPECT_FALSE(hasMethod(std::u16string(u"bank.Draft"), "pay", flag));
}

TEST_F(MemberTestsTest, ClassNameMayBeOfAnOlderForm) {
    world.cls("bank.Account").method("pay");
    world.legacyName("Account", "bank.Account");
    EXPECT_TRUE(hasMethod(std::u16string(u"Account"), "pay", flag));
}

TEST_F(MemberTestsTest, InheritedMembersCount) {
    world.cls("bank.Account").method("pay").property("balance");
    world.cls("bank.Savings").derives("bank.Account");
    const qxUniqueArray savings = world.object("bank.Savings");
    EXPECT_TRUE(hasMethod(savings.get(), "pay"));
    EXPECT_TRUE(hasProperty(savings.get(), "balance"));
    EXPECT_FALSE(hasMethod(savings.get(), "balance"));
    EXPECT_FALSE(hasProperty(savings.get(), "pay"));
}

TEST_F(MemberTestsTest, ValueThatIsNoObjectHasNoMembers) {
    const qxUniqueArray number = world.number(1);
    EXPECT_FALSE(hasMethod(number.get(), "plus"));
    EXPECT_FALSE(hasProperty(number.get(), "plus"));
    EXPECT_FALSE(hasMethod(nullptr, "plus"));
    EXPECT_FALSE(hasProperty(nullptr, "plus"));
}

TEST_F(MemberTestsTest, EmptyMemberNameIsNeverInterned) {
    world.cls("bank.Account").method("pay");
    const qxUniqueArray account = world.object("bank.Account");
    world.journal().clear();
    EXPECT_FALSE(hasMethod(known("bank.Account"), "", flag));
    EXPECT_EQ(world.journal().countOf(Service::makeInterned), 1U);  // the class's own name, above
    EXPECT_FALSE(hasMethod(account.get(), ""));
    EXPECT_FALSE(hasProperty(account.get(), ""));
    EXPECT_EQ(world.journal().countOf(Service::makeInterned), 1U);
}

TEST_F(MemberTestsTest, ByNameFailuresAreNegativeInEveryStep) {
    world.cls("bank.Account").method("pay");
    for (const Fault fault : failuresButInterrupt) {
        for (const Service service :
             {Service::toString, Service::makeInterned, Service::getClass, Service::classGetDefinition,
              Service::classGetID, Service::classFindMethods, Service::iteratorHasMoreElements,
              Service::iteratorNextElement, Service::methodIsStatic}) {
            world.faults().failService(service, fault);
            flag = true;
            EXPECT_FALSE(hasMethod(std::u16string(u"bank.Account"), "pay", flag)) << nameOf(service) << " " << fault;
            EXPECT_TRUE(flag);
        }
    }
}

TEST_F(MemberTestsTest, ByNameTheInterruptPassesInEveryStep) {
    world.cls("bank.Account").method("pay");
    for (const Service service :
         {Service::toString, Service::makeInterned, Service::getClass, Service::classGetDefinition, Service::classGetID,
          Service::classFindMethods, Service::iteratorHasMoreElements, Service::iteratorNextElement,
          Service::methodIsStatic}) {
        world.faults().failService(service, Fault::interrupt);
        EXPECT_THROW(hasMethod(std::u16string(u"bank.Account"), "pay", flag), InterruptException) << nameOf(service);
    }
}

TEST_F(MemberTestsTest, ByIdentityOnlyTheClassLookUpIsGuarded) {
    world.cls("bank.Account").method("pay");
    const ResolvedClassID account = known("bank.Account");
    world.faults().failService(Service::getClass, Fault::standardException);
    EXPECT_FALSE(hasMethod(account, "pay", flag));
    for (const Service service : {Service::classGetDefinition, Service::makeInterned, Service::classFindMethods,
                                  Service::iteratorNextElement, Service::methodIsStatic}) {
        world.faults().failService(service, Fault::standardException);
        EXPECT_THROW(hasMethod(account, "pay", flag), std::runtime_error) << nameOf(service);
    }
}

TEST_F(MemberTestsTest, ByValueOnlyTheClassLookUpIsGuarded) {
    world.cls("bank.Account").method("pay").property("balance");
    const qxUniqueArray account = world.object("bank.Account");
    world.faults().failService(Service::getClass, Fault::standardException);
    EXPECT_FALSE(hasMethod(account.get(), "pay"));
    EXPECT_FALSE(hasProperty(account.get(), "balance"));
    world.faults().failService(Service::classFindMethods, Fault::standardException);
    EXPECT_THROW(hasMethod(account.get(), "pay"), std::runtime_error);
    world.faults().failService(Service::classFindProperty, Fault::standardException);
    EXPECT_THROW(hasProperty(account.get(), "balance"), std::runtime_error);
}

TEST_F(MemberTestsTest, NullWalkIsAWalkOverNothing) {
    world.cls("bank.Account").method("pay");
    flag = true;
    for (const std::size_t lookUp : {1U, 2U}) {
        world.faults().failService(Service::classFindMethods, lookUp, Fault::nullAnswer);
        EXPECT_FALSE(hasMethod(known("bank.Account"), "pay", flag));
    }
    EXPECT_TRUE(flag);
}

}  // namespace
