#include "contextdata/class_member_names.h"

#include "tests/support/world_test.h"

namespace {

using foundation::core::except::InterruptException;
using memory_host::Fault;
using memory_host::Service;
using testing::ElementsAre;
using testing::IsEmpty;
using ZELKContextData::ResolvedClassID;

using ByName = bool (*)(const std::u16string&, std::vector<std::u16string>&, bool&);
using ByIdentity = bool (*)(const ResolvedClassID&, std::vector<std::u16string>&, bool&);

struct Listing {
    const char* name;
    ByName byName;
    ByIdentity byIdentity;
    bool writesFlag;
    std::vector<std::u16string> ofAccount;  // what it lists of the class below
    Service lateService;                    // met again after the first name has been appended
    std::size_t conversionOfSecondName;     // names that are rejected are converted too, where a walk remembers them
};

std::ostream& operator<<(std::ostream& out, const Listing& listing) { return out << listing.name; }

const Listing listings[] = {
    {"methods",
     ZELKContextData::getClassMethodNames,
     ZELKContextData::getClassMethodNames,
     false,
     {u"deposit", u"open", u"reopen"},
     Service::methodGetName,
     2},
    {"staticMethods",
     ZELKContextData::getClassStaticMethodNames,
     ZELKContextData::getClassStaticMethodNames,
     false,
     {u"open", u"reopen"},
     Service::methodGetName,
     3},
    {"properties",
     ZELKContextData::getClassPropertyNames,
     ZELKContextData::getClassPropertyNames,
     true,
     {u"balance", u"limit", u"floor"},
     Service::propertyGetName,
     2},
    {"constants",
     ZELKContextData::getClassConstantPropertyNames,
     ZELKContextData::getClassConstantPropertyNames,
     true,
     {u"limit", u"floor"},
     Service::propertyGetName,
     2},
    {"enumeration",
     ZELKContextData::getClassEnumerationNames,
     ZELKContextData::getClassEnumerationNames,
     false,
     {u"Open", u"Closed"},
     Service::enumGetName,
     2},
};

class ClassMemberNames : public WorldTest, public testing::WithParamInterface<Listing> {
protected:
    ClassMemberNames() {
        world.cls("bank.Account")
            .method("Account")
            .method("deposit")
            .method("open")
            .isStatic()
            .method("reopen")
            .isStatic()
            .method("audit")
            .unlistable()
            .method("secret")
            .access(2)
            .property("balance")
            .property("key")
            .getAccess(2)
            .setAccess(2)
            .property("shadow")
            .unlistable()
            .constant("limit")
            .constant("floor")
            .enumerationMember("Open")
            .enumerationMember("Lost")
            .hiddenMember()
            .foreignNodeInEnumeration()
            .enumerationMember("Closed");
        world.legacyName("Account", "bank.Account");
        world.cls("bank.Empty").hasDynamicProperties();
    }

    static ResolvedClassID known(const char* name) {
        return ResolvedClassID::fromKnownResolvedClassID(std::string(name));
    }

    const Listing& listing = GetParam();
    Names names;
    bool flag = false;
};

INSTANTIATE_TEST_SUITE_P(All, ClassMemberNames, testing::ValuesIn(listings),
                         [](const auto& instance) { return instance.param.name; });

TEST_P(ClassMemberNames, ListsByNameByOlderNameAndByIdentity) {
    EXPECT_TRUE(listing.byName(u"bank.Account", names, flag));
    EXPECT_EQ(names, listing.ofAccount);
    names.clear();
    EXPECT_TRUE(listing.byName(u"Account", names, flag));
    EXPECT_EQ(names, listing.ofAccount);
    names.clear();
    EXPECT_TRUE(listing.byIdentity(known("bank.Account"), names, flag));
    EXPECT_EQ(names, listing.ofAccount);
}

TEST_P(ClassMemberNames, VectorKeepsWhatItHoldsAndGrowthAloneCounts) {
    names = listing.ofAccount;
    EXPECT_TRUE(listing.byName(u"bank.Account", names, flag));  // only names that are there already
    EXPECT_EQ(names.size(), 2 * listing.ofAccount.size());
}

TEST_P(ClassMemberNames, ClassWithoutSuchMembersAnswersFalse) {
    EXPECT_FALSE(listing.byName(u"bank.Empty", names, flag));
    EXPECT_FALSE(listing.byIdentity(known("bank.Empty"), names, flag));
    EXPECT_THAT(names, IsEmpty());
}

TEST_P(ClassMemberNames, FlagIsWrittenByThePropertyListingsAloneAndEvenWithoutNames) {
    flag = false;
    listing.byName(u"bank.Empty", names, flag);  // has dynamic properties
    EXPECT_EQ(flag, listing.writesFlag);
    flag = true;
    listing.byIdentity(known("bank.Account"), names, flag);  // has none
    EXPECT_EQ(flag, !listing.writesFlag);
}

TEST_P(ClassMemberNames, FlagIsAskedOncePerCallBeforeAnyName) {
    listing.byIdentity(known("bank.Account"), names, flag);
    EXPECT_EQ(world.journal().countOf(Service::classHasDynamicProperties), listing.writesFlag ? 1U : 0U);
    if (listing.writesFlag) {
        world.faults().failService(Service::classHasDynamicProperties, Fault::standardException);
        names = {u"kept"};
        EXPECT_THROW(listing.byIdentity(known("bank.Account"), names, flag), std::runtime_error);
        EXPECT_THAT(names, ElementsAre(u"kept"));
    }
}

TEST_P(ClassMemberNames, UnknownClassAnswersFalseAndTouchesNothing) {
    names = {u"kept"};
    for (const bool before : {false, true}) {
        flag = before;
        EXPECT_FALSE(listing.byName(u"no.such.Class", names, flag));
        EXPECT_FALSE(listing.byName(u"", names, flag));
        EXPECT_FALSE(listing.byIdentity(known("no.such.Class"), names, flag));
        EXPECT_FALSE(listing.byIdentity(ResolvedClassID(), names, flag));
        EXPECT_EQ(flag, before);
    }
    EXPECT_THAT(names, ElementsAre(u"kept"));
}

TEST_P(ClassMemberNames, ByNameSwallowsEverythingTheInterruptIncluded) {
    for (const Fault fault :
         {Fault::interrupt, Fault::hostException, Fault::standardException, Fault::thrownInt, Fault::badAlloc}) {
        for (const Service service : {Service::toString, Service::makeInterned, Service::getClass,
                                      Service::classGetDefinition, Service::classGetID, listing.lateService}) {
            world.faults().failService(service, fault);
            EXPECT_FALSE(listing.byName(u"bank.Account", names, flag)) << nameOf(service) << " " << fault;
        }
    }
    EXPECT_THAT(names, IsEmpty());
}

TEST_P(ClassMemberNames, ByNameKeepsTheNamesAppendedBeforeAnException) {
    world.faults().failService(Service::toUstring, listing.conversionOfSecondName, Fault::interrupt);
    EXPECT_FALSE(listing.byName(u"bank.Account", names, flag));
    EXPECT_THAT(names, ElementsAre(listing.ofAccount[0]));
}

TEST_P(ClassMemberNames, ByIdentityPassesWhateverTheWalkThrows) {
    world.faults().failService(listing.lateService, Fault::standardException);
    EXPECT_THROW(listing.byIdentity(known("bank.Account"), names, flag), std::runtime_error);
    world.faults().failService(listing.lateService, Fault::interrupt);
    EXPECT_THROW(listing.byIdentity(known("bank.Account"), names, flag), InterruptException);
    world.faults().failService(listing.lateService, Fault::thrownInt);
    EXPECT_THROW(listing.byIdentity(known("bank.Account"), names, flag), int);
    EXPECT_EQ(world.handlesAlive(), 0U);
}

TEST_P(ClassMemberNames, ByIdentityAClassThatCannotBeLookedUpIsNoClassButTheInterruptPasses) {
    world.faults().failService(Service::getClass, Fault::standardException);
    EXPECT_FALSE(listing.byIdentity(known("bank.Account"), names, flag));
    world.faults().failService(Service::getClass, Fault::interrupt);
    EXPECT_THROW(listing.byIdentity(known("bank.Account"), names, flag), InterruptException);
}

TEST_P(ClassMemberNames, ClassObjectWithoutDefinitionListsAllButMethodsByIdentityAndNothingByName) {
    world.cls("bank.Account").undefined();
    const bool listsMethods = listing.lateService == Service::methodGetName;
    EXPECT_FALSE(listing.byName(u"bank.Account", names, flag));
    EXPECT_THAT(names, IsEmpty());
    EXPECT_EQ(listing.byIdentity(known("bank.Account"), names, flag), !listsMethods);
    EXPECT_EQ(names, listsMethods ? Names() : listing.ofAccount);
}

class ClassEnumerationNames : public WorldTest {
protected:
    Names names;
    bool flag = false;
};

TEST_F(ClassEnumerationNames, AreNeitherSortedNorDeduplicated) {
    world.cls("Color").enumerationMember("Red").enumerationMember("Blue").enumerationMember("Red");
    EXPECT_TRUE(ZELKContextData::getClassEnumerationNames(std::u16string(u"Color"), names, flag));
    EXPECT_THAT(names, ElementsAre(u"Red", u"Blue", u"Red"));
}

TEST_F(ClassEnumerationNames, ClassWithoutAnEnumerationWalkHasNone) {
    world.cls("Color").enumerationMember("Red");
    world.faults().failService(Service::classGetEnumerationMembers, Fault::nullAnswer);
    EXPECT_FALSE(ZELKContextData::getClassEnumerationNames(std::u16string(u"Color"), names, flag));
}

}  // namespace
