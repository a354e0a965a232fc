#include "contextdata/introspection.h"

#include "tests/support/world_test.h"

namespace {

using foundation::core::except::InterruptException;
using memory_host::Fault;
using memory_host::Service;
using ZELKContextData::ResolvedClassID;
using namespace ZELKIntrospection;  // NOLINT(google-build-using-namespace): the functions under test

class IntrospectionTest : public WorldTest {
protected:
    static ResolvedClassID known(const char* name) {
        return ResolvedClassID::fromKnownResolvedClassID(std::string(name));
    }
};

TEST_F(IntrospectionTest, DefinedClassIsFoundByNameIdentityAndValue) {
    zelk::COSClass* cls = world.cls("bank.Account").object();
    const qxUniqueArray account = world.object("bank.Account");
    EXPECT_EQ(getCOSClass(std::u16string(u"bank.Account")), cls);
    EXPECT_EQ(getCOSClass(known("bank.Account")), cls);
    EXPECT_EQ(getCOSClass(account.get()), cls);
    EXPECT_TRUE(isZELKClass(std::u16string(u"bank.Account")));
    EXPECT_TRUE(isZELKClass(known("bank.Account")));
    EXPECT_TRUE(isZELKObject(account.get()));
}

TEST_F(IntrospectionTest, ClassObjectWithoutDefinitionIsAClassByIdentityOnly) {
    zelk::COSClass* cls = world.cls("bank.Draft").undefined().object();
    const qxUniqueArray draft = world.object("bank.Draft");
    EXPECT_FALSE(isZELKClass(std::u16string(u"bank.Draft")));
    EXPECT_TRUE(isZELKClass(known("bank.Draft")));
    EXPECT_EQ(getCOSClass(known("bank.Draft")), cls);
    EXPECT_EQ(getCOSClass(draft.get()), nullptr);
    EXPECT_FALSE(isZELKObject(draft.get()));
}

TEST_F(IntrospectionTest, EmptyNameIsNoClassAndIsNeverInterned) {
    EXPECT_FALSE(isZELKClass(std::u16string()));
    EXPECT_EQ(world.journal().countOf(Service::makeInterned), 0U);
}

TEST_F(IntrospectionTest, NamesAreNotResolved) {
    world.contextResolution(true);
    world.cls("bank.Account");
    FunctionScope* scope = world.scope(u"f.k");
    world.imports(scope, "Account", "bank.Account");
    world.executing(scope);
    EXPECT_FALSE(isZELKClass(std::u16string(u"Account")));
}

TEST_F(IntrospectionTest, NullValueIsNoObject) {
    EXPECT_FALSE(isZELKObject(nullptr));
    EXPECT_TRUE(world.journal().calls().empty());
}

TEST_F(IntrospectionTest, NumericArrayIsNoObjectAndHasItsArrayClassName) {
    const qxUniqueArray number = world.number(1);
    EXPECT_FALSE(isZELKObject(number.get()));
    EXPECT_EQ(getClassName(number.get()), u"double");
}

TEST_F(IntrospectionTest, ClassNameOfAnObjectIsItsClass) {
    const qxUniqueArray account = world.object("bank.Account");
    EXPECT_EQ(getClassName(account.get()), u"bank.Account");
}

TEST_F(IntrospectionTest, LookUpByNameTurnsFailuresIntoNoClass) {
    world.cls("bank.Account");
    for (const Fault fault : failuresButInterrupt) {
        for (const Service service :
             {Service::toString, Service::makeInterned, Service::getClass, Service::classGetDefinition}) {
            world.faults().failService(service, fault);
            EXPECT_EQ(getCOSClass(std::u16string(u"bank.Account")), nullptr) << nameOf(service) << " " << fault;
        }
    }
}

TEST_F(IntrospectionTest, LookUpByNameLetsTheInterruptPass) {
    world.cls("bank.Account");
    for (const Service service :
         {Service::toString, Service::makeInterned, Service::getClass, Service::classGetDefinition}) {
        world.faults().failService(service, Fault::interrupt);
        EXPECT_THROW(getCOSClass(std::u16string(u"bank.Account")), InterruptException) << nameOf(service);
    }
}

TEST_F(IntrospectionTest, LookUpByIdentityTurnsFailuresIntoNoClassAndLetsTheInterruptPass) {
    world.cls("bank.Account");
    for (const Fault fault : failuresButInterrupt) {
        world.faults().failService(Service::getClass, fault);
        EXPECT_EQ(getCOSClass(known("bank.Account")), nullptr) << fault;
    }
    world.faults().failService(Service::getClass, Fault::interrupt);
    EXPECT_THROW(getCOSClass(known("bank.Account")), InterruptException);
}

TEST_F(IntrospectionTest, LookUpByValueGuardsTheLookUpButNotTheQuestionToTheValue) {
    const qxUniqueArray account = world.object("bank.Account");
    world.faults().failService(Service::getClass, Fault::standardException);
    EXPECT_EQ(getCOSClass(account.get()), nullptr);
    world.faults().failService(Service::getClass, Fault::interrupt);
    EXPECT_THROW(getCOSClass(account.get()), InterruptException);
    world.faults().failService(Service::omGetCOSClassID, Fault::standardException);
    EXPECT_THROW(getCOSClass(account.get()), std::runtime_error);
}

TEST_F(IntrospectionTest, HiddenIsAskedOfDefinedClassesOnly) {
    world.cls("bank.Vault").hidden();
    world.cls("bank.Account");
    world.cls("bank.Draft").hidden().undefined();
    EXPECT_TRUE(isHiddenZELKClass(u"bank.Vault"));
    EXPECT_FALSE(isHiddenZELKClass(u"bank.Account"));
    EXPECT_FALSE(isHiddenZELKClass(u"bank.Draft"));
    EXPECT_FALSE(isHiddenZELKClass(u"no.such.Class"));
}

TEST_F(IntrospectionTest, HiddenFlagItselfIsNotGuarded) {
    world.cls("bank.Account");
    world.faults().failService(Service::classIsHidden, Fault::standardException);
    EXPECT_THROW(isHiddenZELKClass(u"bank.Account"), std::runtime_error);
}

TEST_F(IntrospectionTest, DerivationByNames) {
    world.cls("bank.Savings").derives("bank.Account");
    EXPECT_TRUE(isZELKClassDerivedFrom(std::u16string(u"bank.Savings"), std::u16string(u"bank.Account")));
    EXPECT_FALSE(isZELKClassDerivedFrom(std::u16string(u"bank.Account"), std::u16string(u"bank.Savings")));
    EXPECT_FALSE(isZELKClassDerivedFrom(std::u16string(u"bank.Savings"), std::u16string()));
}

TEST_F(IntrospectionTest, NoDefinedClassDerivesFromNothingAndTheBaseIsNotAskedFor) {
    world.cls("bank.Draft").undefined().derives("bank.Account");
    world.journal().clear();
    EXPECT_FALSE(isZELKClassDerivedFrom(std::u16string(u"bank.Draft"), std::u16string(u"bank.Account")));
    EXPECT_EQ(world.journal().countOf(Service::toString), 1U);
    EXPECT_EQ(world.journal().countOf(Service::classIsSubclassOf), 0U);
}

TEST_F(IntrospectionTest, DerivationByIdentitiesMakesNoDefinitionTest) {
    world.cls("bank.Draft").undefined().derives("bank.Account");
    EXPECT_TRUE(isZELKClassDerivedFrom(known("bank.Draft"), known("bank.Account")));
    EXPECT_FALSE(isZELKClassDerivedFrom(known("no.such.Class"), known("bank.Account")));
}

TEST_F(IntrospectionTest, DerivationTestItselfIsNotGuarded) {
    world.cls("bank.Savings").derives("bank.Account");
    world.faults().failService(Service::classIsSubclassOf, Fault::standardException);
    EXPECT_THROW(isZELKClassDerivedFrom(std::u16string(u"bank.Savings"), std::u16string(u"bank.Account")),
                 std::runtime_error);
    EXPECT_THROW(isZELKClassDerivedFrom(known("bank.Savings"), known("bank.Account")), std::runtime_error);
}

TEST_F(IntrospectionTest, NamespacesAreFoundByName) {
    world.ns("bank");
    EXPECT_NE(getNamespaceInterface(u"bank"), nullptr);
    EXPECT_TRUE(isZELKNamespace(u"bank"));
    EXPECT_FALSE(isZELKNamespace(u"shop"));
}

TEST_F(IntrospectionTest, EmptyNameIsNoNamespace) {
    EXPECT_FALSE(isZELKNamespace(u""));
    EXPECT_EQ(world.journal().countOf(Service::makeInterned), 0U);
}

TEST_F(IntrospectionTest, NamespaceHandleIsReleased) {
    world.ns("bank");
    EXPECT_NE(getNamespaceInterface(u"bank"), nullptr);
    EXPECT_EQ(world.handlesAlive(), 0U);
}

TEST_F(IntrospectionTest, NamespaceLookUpIsNotGuarded) {
    for (const Service service : {Service::toString, Service::makeInterned, Service::getNamespaceInterface}) {
        world.faults().failService(service, Fault::standardException);
        EXPECT_THROW(getNamespaceInterface(u"bank"), std::runtime_error) << nameOf(service);
        world.faults().failService(service, Fault::interrupt);
        EXPECT_THROW(isZELKNamespace(u"bank"), InterruptException) << nameOf(service);
    }
}

TEST_F(IntrospectionTest, ClassNameIsNotGuarded) {
    const qxUniqueArray number = world.number(1);
    world.faults().failService(Service::qxGetClassName, Fault::standardException);
    EXPECT_THROW(getClassName(number.get()), std::runtime_error);
}

TEST_F(IntrospectionTest, ConstructorNameIsThePartAfterTheLastDot) {
    EXPECT_EQ(getConstructorName(u"ostrel.mixin.internal.CustomSizeString"), u"CustomSizeString");
    EXPECT_EQ(getConstructorName(u"Account"), u"Account");
    EXPECT_EQ(getConstructorName(u"bank."), u"");
    EXPECT_EQ(getConstructorName(u""), u"");
    EXPECT_TRUE(world.journal().calls().empty());
}

}  // namespace
