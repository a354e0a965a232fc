#include "contextdata/namespace_names.h"

#include "tests/support/world_test.h"

namespace {

using foundation::core::except::InterruptException;
using memory_host::Call;
using memory_host::Fault;
using memory_host::NamespaceBuilder;
using memory_host::Service;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

/// One of the three listings.
struct Listing {
    const char* kind;
    bool (*list)(const std::u16string& name, std::vector<std::u16string>& names);
    const char* listProperty;
    Service members;
    NamespaceBuilder& (NamespaceBuilder::*holds)(std::string_view name);

    friend std::ostream& operator<<(std::ostream& out, const Listing& listing) { return out << listing.kind; }
};

const Listing listings[] = {
    {"Classes", ZELKContextData::getNamespaceClassNames, "ClassList", Service::namespaceGetClasses,
     &NamespaceBuilder::holdsClass},
    {"Functions", ZELKContextData::getNamespaceFunctionNames, "FunctionList", Service::namespaceGetFunctions,
     &NamespaceBuilder::function},
    {"Namespaces", ZELKContextData::getNamespaceNamespaceNames, "PackageList", Service::namespaceGetNamespaces,
     &NamespaceBuilder::holdsNamespace},
};

class NamespaceListing : public WorldTest, public testing::WithParamInterface<Listing> {
protected:
    bool list(const std::u16string& name = u"bank") { return GetParam().list(name, names); }
    NamespaceBuilder holds(std::string_view member) { return (bank().*GetParam().holds)(member); }
    NamespaceBuilder bank() { return world.ns("bank"); }

    /// The calls of the journal that are of one of these services.
    std::vector<Call> calls(const std::vector<Service>& services) {
        std::vector<Call> found;
        for (const Call& call : world.journal().calls()) {
            if (std::find(services.begin(), services.end(), call.service) != services.end()) {
                found.push_back(call);
            }
        }
        return found;
    }

    const Names before = {u"kept"};
    Names names = before;
};

INSTANTIATE_TEST_SUITE_P(Each, NamespaceListing, testing::ValuesIn(listings),
                         [](const auto& each) { return std::string(each.param.kind); });

TEST_P(NamespaceListing, AppendsInTheOrderOfTheHostUnsortedAndWithRepeats) {
    holds("zeta");
    holds("alpha");
    holds("zeta");
    EXPECT_TRUE(list());
    EXPECT_THAT(names, ElementsAre(u"kept", u"zeta", u"alpha", u"zeta"));
}

TEST_P(NamespaceListing, NamesStandAsTheHostGivesThem) {
    holds("bank.inner.Thing");
    EXPECT_TRUE(list());
    EXPECT_THAT(names, ElementsAre(u"kept", u"bank.inner.Thing"));
}

TEST_P(NamespaceListing, NameThatIsThereAlreadyIsAppendedAgain) {
    holds("kept");
    EXPECT_TRUE(list());
    EXPECT_THAT(names, ElementsAre(u"kept", u"kept"));
}

TEST_P(NamespaceListing, UnknownNamespaceAnswersFalseAndTouchesNothing) {
    EXPECT_FALSE(list(u"nowhere"));
    EXPECT_EQ(names, before);
    EXPECT_EQ(world.journal().countOf(Service::omCreateZELKScalar), 0U);
    EXPECT_EQ(world.journal().countOf(Service::qxGetPropertyShared), 0U);
}

TEST_P(NamespaceListing, EmptyNameIsNoNamespace) {
    EXPECT_FALSE(list(u""));
    EXPECT_EQ(names, before);
}

TEST_P(NamespaceListing, EmptyNamespaceAnswersFalseWhateverTheVectorHolds) {
    bank();
    EXPECT_FALSE(list());
    EXPECT_EQ(names, before);
}

TEST_P(NamespaceListing, ListIsReadBeforeTheNamespaceIsLookedUpAgainAndWalked) {
    holds("alpha");
    EXPECT_TRUE(list());
    EXPECT_THAT(calls({Service::getNamespaceInterface, Service::omCreateZELKScalar, Service::qxGetPropertyShared,
                       GetParam().members}),
                ElementsAre(Call{Service::getNamespaceInterface, "bank"}, Call{Service::omCreateZELKScalar, ""},
                            Call{Service::qxGetPropertyShared, GetParam().listProperty},
                            Call{Service::getNamespaceInterface, "bank"}, Call{GetParam().members, "bank"}));
}

TEST_P(NamespaceListing, NoOtherListIsReadOrWalked) {
    bank().holdsClass("Thing").function("make").holdsNamespace("inner");
    EXPECT_TRUE(list());
    EXPECT_THAT(calls({Service::namespaceGetClasses, Service::namespaceGetFunctions, Service::namespaceGetNamespaces}),
                ElementsAre(Call{GetParam().members, "bank"}));
    EXPECT_EQ(world.journal().countOf(Service::qxGetPropertyShared), 1U);
}

TEST_P(NamespaceListing, ListThatIsFilledInByReadingIsComplete) {
    holds("alpha").fillsListsWhenRead();
    EXPECT_TRUE(list());
    EXPECT_THAT(names, ElementsAre(u"kept", u"alpha"));
}

TEST_P(NamespaceListing, ListAndScalarAreGoneBeforeTheSecondLookUp) {
    holds("alpha");
    std::vector<std::size_t> alive;
    world.whenCalled(Service::getNamespaceInterface,
                     [&] { alive.push_back(world.valuesAlive() + world.handlesAlive()); });
    std::size_t aliveInTheRead = 0;
    world.whenCalled(Service::qxGetPropertyShared, [&] { aliveInTheRead = world.valuesAlive(); });
    EXPECT_TRUE(list());
    EXPECT_EQ(aliveInTheRead, 1U);
    EXPECT_THAT(alive, ElementsAre(0U, 0U));
}

TEST_P(NamespaceListing, ListIsOutOfTheTemporaryScopeOnceItIsReleased) {
    holds("alpha");
    EXPECT_TRUE(list());
    world.endTemporaryScope();  // would release it a second time
    EXPECT_EQ(world.valuesAlive(), 0U);
}

TEST_P(NamespaceListing, NamespaceThatVanishesBeforeTheSecondLookUpAnswersFalse) {
    holds("alpha");
    world.faults().failService(Service::getNamespaceInterface, 2, Fault::nullAnswer);
    EXPECT_FALSE(list());
    EXPECT_EQ(names, before);
    EXPECT_EQ(world.journal().countOf(Service::qxGetPropertyShared), 1U);
}

TEST_P(NamespaceListing, NamespaceThatAppearsAtTheSecondLookUpIsWalkedAllTheSame) {
    holds("alpha");
    world.faults().failService(Service::getNamespaceInterface, 1, Fault::nullAnswer);
    EXPECT_TRUE(list());
    EXPECT_THAT(names, ElementsAre(u"kept", u"alpha"));
    EXPECT_EQ(world.journal().countOf(Service::omCreateZELKScalar), 0U);
}

TEST_P(NamespaceListing, MembersOfOtherKindsAreSkipped) {
    holds("alpha").foreignNodes();
    holds("beta");
    EXPECT_TRUE(list());
    EXPECT_THAT(names, ElementsAre(u"kept", u"alpha", u"beta"));
}

TEST_P(NamespaceListing, ForeignMembersAloneAreNoGrowth) {
    bank().foreignNodes();
    EXPECT_FALSE(list());
    EXPECT_EQ(names, before);
}

TEST_P(NamespaceListing, NamespaceWithoutAWalkAnswersFalse) {
    holds("alpha");
    world.faults().failService(GetParam().members, Fault::nullAnswer);
    EXPECT_FALSE(list());
    EXPECT_EQ(names, before);
}

TEST_P(NamespaceListing, NamespaceIsLookedUpByItsNameInAscii) {
    (world.ns("b?nk").*GetParam().holds)("alpha");
    EXPECT_TRUE(list(u"b\u00E4nk"));
    EXPECT_THAT(calls({Service::getNamespaceInterface}), Each(Call{Service::getNamespaceInterface, "b?nk"}));
}

TEST_P(NamespaceListing, NameOfAMemberBeyondAsciiIsSubstitutedNotRefused) {
    holds("caf\xC3\xA9");
    EXPECT_TRUE(list());
    EXPECT_THAT(names, ElementsAre(u"kept", u"caf??"));
}

TEST_P(NamespaceListing, FailureInTheMiddlePassesAndKeepsTheNamesSoFar) {
    holds("alpha");
    holds("beta");
    holds("gamma");
    world.faults().failService(Service::iteratorNextElement, 3, Fault::interrupt);
    EXPECT_THROW(list(), InterruptException);
    EXPECT_THAT(names, ElementsAre(u"kept", u"alpha", u"beta"));
    world.faults().failService(Service::toUstring, 2, Fault::thrownInt);
    EXPECT_THROW(list(), int);
    EXPECT_THAT(names, ElementsAre(u"kept", u"alpha", u"beta", u"alpha"));
}

TEST_P(NamespaceListing, FailureWhileTheListIsReadPassesAndNothingIsWalked) {
    holds("alpha");
    world.faults().failService(Service::qxGetPropertyShared, Fault::standardException);
    EXPECT_THROW(list(), std::runtime_error);
    EXPECT_EQ(names, before);
    EXPECT_EQ(world.journal().countOf(GetParam().members), 0U);
}

class NamespaceNamesTest : public WorldTest {
protected:
    Names names;
};

TEST_F(NamespaceNamesTest, HiddenClassesAreNeverListed) {
    world.cls("bank.Secret").hidden();
    world.ns("bank").holdsClass("bank.Account").holdsClass("bank.Secret").holdsClass("bank.Money");
    EXPECT_TRUE(ZELKContextData::getNamespaceClassNames(u"bank", names));
    EXPECT_THAT(names, ElementsAre(u"bank.Account", u"bank.Money"));
}

TEST_F(NamespaceNamesTest, NamespaceOfHiddenClassesOnlyAnswersFalse) {
    world.cls("bank.Secret").hidden();
    world.ns("bank").holdsClass("bank.Secret");
    EXPECT_FALSE(ZELKContextData::getNamespaceClassNames(u"bank", names));
    EXPECT_THAT(names, IsEmpty());
}

TEST_F(NamespaceNamesTest, ClassWithoutDefinitionIsListedForHiddenIsAllThatCounts) {
    world.cls("bank.Draft").undefined();
    world.ns("bank").holdsClass("bank.Draft");
    EXPECT_TRUE(ZELKContextData::getNamespaceClassNames(u"bank", names));
    EXPECT_THAT(names, ElementsAre(u"bank.Draft"));
}

TEST_F(NamespaceNamesTest, FunctionThatFailsEitherTestIsNeverListed) {
    world.ns("bank")
        .function("convert")
        .function("unlistable")
        .unlistable()
        .function("internal")
        .access(1)
        .function("negative")
        .access(-1)
        .function("neither")
        .unlistable()
        .access(2)
        .function("round");
    EXPECT_TRUE(ZELKContextData::getNamespaceFunctionNames(u"bank", names));
    EXPECT_THAT(names, ElementsAre(u"convert", u"round"));
}

TEST_F(NamespaceNamesTest, InnerNamespacesAreNeverFiltered) {
    world.cls("bank.internal").hidden();
    world.ns("bank").holdsNamespace("bank.internal").holdsNamespace("bank.empty");
    EXPECT_TRUE(ZELKContextData::getNamespaceNamespaceNames(u"bank", names));
    EXPECT_THAT(names, ElementsAre(u"bank.internal", u"bank.empty"));
    EXPECT_EQ(world.journal().countOf(Service::classIsHidden), 0U);
}

TEST_F(NamespaceNamesTest, NamespaceWithoutClassesMayHoldNamespaces) {
    world.ns("bank").holdsNamespace("bank.internal");
    EXPECT_FALSE(ZELKContextData::getNamespaceClassNames(u"bank", names));
    EXPECT_THAT(names, IsEmpty());
    EXPECT_TRUE(ZELKContextData::getNamespaceNamespaceNames(u"bank", names));
    EXPECT_THAT(names, ElementsAre(u"bank.internal"));
}

TEST_F(NamespaceNamesTest, ReadingOneListFillsInNoOther) {
    world.ns("bank").holdsClass("bank.Account").function("convert").fillsListsWhenRead();
    EXPECT_TRUE(ZELKContextData::getNamespaceClassNames(u"bank", names));
    world.faults().failService(Service::qxGetPropertyShared, Fault::nullAnswer);
    EXPECT_FALSE(ZELKContextData::getNamespaceFunctionNames(u"bank", names));
    EXPECT_THAT(names, ElementsAre(u"bank.Account"));
}

TEST_F(NamespaceNamesTest, NothingIsRememberedBetweenCalls) {
    world.ns("bank").holdsClass("bank.Account");
    EXPECT_TRUE(ZELKContextData::getNamespaceClassNames(u"bank", names));
    world.ns("bank").holdsClass("bank.Money");
    world.cls("bank.Account").hidden();
    EXPECT_TRUE(ZELKContextData::getNamespaceClassNames(u"bank", names));
    EXPECT_THAT(names, ElementsAre(u"bank.Account", u"bank.Money"));
}

}  // namespace
