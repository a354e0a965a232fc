#include "contextdata/resolved_class_id.h"

#include <type_traits>
#include <utility>

#include "tests/support/world_test.h"

namespace {

using foundation::core::except::InterruptException;
using memory_host::Fault;
using memory_host::Service;
using ZELKContextData::ResolvedClassID;
using BadClassNameException = ResolvedClassID::BadClassNameException;

class ResolvedClassIDTest : public WorldTest {
protected:
    static std::string nameOf(const ResolvedClassID& id) { return std::string(id.get().view()); }
};

TEST_F(ResolvedClassIDTest, DefaultIsNull) {
    EXPECT_TRUE(ResolvedClassID().isNull());
    EXPECT_TRUE(ResolvedClassID().get().isEmpty());
}

TEST_F(ResolvedClassIDTest, IsAsCopyableAsAPointer) {
    static_assert(sizeof(ResolvedClassID) == sizeof(void*));
    static_assert(std::is_trivially_copyable_v<ResolvedClassID>);
    static_assert(std::is_trivially_destructible_v<ResolvedClassID>);
}

TEST_F(ResolvedClassIDTest, MovedFromIdentityKeepsItsValue) {
    ResolvedClassID source = ResolvedClassID::fromKnownResolvedClassID(std::string("bank.Account"));
    const ResolvedClassID target = std::move(source);
    EXPECT_EQ(nameOf(source), "bank.Account");  // NOLINT(bugprone-use-after-move): this is the rule under test
    EXPECT_EQ(target.get(), source.get());
}

TEST_F(ResolvedClassIDTest, SameNameGivesTheSameHandle) {
    const ResolvedClassID first = ResolvedClassID::fromKnownResolvedClassID(std::string("bank.Account"));
    const ResolvedClassID second = ResolvedClassID::fromKnownResolvedClassID(std::u16string(u"bank.Account"));
    EXPECT_EQ(first.get(), second.get());
    EXPECT_EQ(first.get().c_str(), second.get().c_str());
}

class UnresolvableNames : public ResolvedClassIDTest,
                          public testing::WithParamInterface<std::tuple<std::u16string, bool>> {};

TEST_P(UnresolvableNames, GiveNullWithoutAskingTheHost) {
    const auto& [name, featureOn] = GetParam();
    world.contextResolution(featureOn);
    FunctionScope* scope = world.scope(u"f.k");
    EXPECT_TRUE(ResolvedClassID(u"f.k", name).isNull());
    EXPECT_TRUE(ResolvedClassID(scope, name).isNull());
    EXPECT_EQ(world.journal().calls().size(), world.journal().countOf(Service::toString));
}

INSTANTIATE_TEST_SUITE_P(EmptyAndDotLed, UnresolvableNames,
                         testing::Combine(testing::Values(u"", u".", u".Account"), testing::Bool()));

TEST_F(ResolvedClassIDTest, SwitchOffInternsTheNameAsItStands) {
    EXPECT_EQ(nameOf(ResolvedClassID(u"f.k", u"no.such.Class")), "no.such.Class");
    EXPECT_EQ(nameOf(ResolvedClassID(nullptr, u"no.such.Class")), "no.such.Class");
    EXPECT_EQ(world.journal().countOf(Service::getDispatcher), 0U);
    EXPECT_EQ(world.journal().countOf(Service::omResolveAnyClass), 0U);
}

TEST_F(ResolvedClassIDTest, SwitchOnAndUnknownNameIsNullNotTheRawName) {
    world.contextResolution(true);
    EXPECT_TRUE(ResolvedClassID(u"f.k", u"no.such.Class").isNull());
    EXPECT_TRUE(ResolvedClassID(nullptr, u"no.such.Class").isNull());
}

TEST_F(ResolvedClassIDTest, ResolvesAsTheContextFileSeesTheName) {
    world.contextResolution(true);
    world.cls("bank.Account");
    world.imports(world.scope(u"f.k"), "Account", "bank.Account");
    EXPECT_EQ(nameOf(ResolvedClassID(u"f.k", u"Account")), "bank.Account");
    EXPECT_EQ(world.journal().countOf(Service::getDebuggerFocus), 0U);
}

TEST_F(ResolvedClassIDTest, WithoutAScopeForTheFileTheDebuggersFocusDecides) {
    world.contextResolution(true);
    world.cls("bank.Account");
    world.imports(world.scope(u"focus.k"), "Account", "bank.Account");
    world.debuggerStoppedAt(u"focus.k");
    EXPECT_EQ(nameOf(ResolvedClassID(u"unknown.k", u"Account")), "bank.Account");
}

TEST_F(ResolvedClassIDTest, WithoutAFocusTheExecutingScopeDecides) {
    world.contextResolution(true);
    world.cls("bank.Account");
    FunctionScope* scope = world.scope(u"running.k");
    world.imports(scope, "Account", "bank.Account");
    world.executing(scope);
    EXPECT_EQ(nameOf(ResolvedClassID(u"unknown.k", u"Account")), "bank.Account");
}

TEST_F(ResolvedClassIDTest, WithoutAnyScopeTheHostIsAskedWithNone) {
    world.contextResolution(true);
    world.cls("bank.Account");
    EXPECT_EQ(nameOf(ResolvedClassID(u"unknown.k", u"bank.Account")), "bank.Account");
    EXPECT_EQ(world.journal().countOf(Service::getCurrentlyExecutingFunctionScope), 1U);
}

TEST_F(ResolvedClassIDTest, GivenScopeIsTheOnlyOneAsked) {
    world.contextResolution(true);
    world.cls("bank.Account");
    FunctionScope* scope = world.scope(u"f.k");
    world.imports(scope, "Account", "bank.Account");
    EXPECT_EQ(nameOf(ResolvedClassID(scope, u"Account")), "bank.Account");
    EXPECT_EQ(world.journal().countOf(Service::getDispatcher), 0U);
}

TEST_F(ResolvedClassIDTest, HostFailureInAContextGivesTheRawName) {
    for (const Fault fault : failuresButInterrupt) {
        for (const Service service :
             {Service::featureIsOn, Service::getDispatcher, Service::getFunctionScope, Service::getInterpreterBridge,
              Service::getCurrentlyExecutingFunctionScope, Service::omResolveAnyClass}) {
            world.contextResolution(true);
            world.faults().failService(service, fault);
            EXPECT_EQ(nameOf(ResolvedClassID(u"f.k", u"Account")), "Account")
                << memory_host::nameOf(service) << " " << fault;
        }
    }
}

TEST_F(ResolvedClassIDTest, InterruptDuringResolutionReachesTheCaller) {
    world.contextResolution(true);
    for (const Service service : {Service::featureIsOn, Service::getFunctionScope, Service::omResolveAnyClass}) {
        world.faults().failService(service, Fault::interrupt);
        EXPECT_THROW(ResolvedClassID(u"f.k", u"Account"), InterruptException) << memory_host::nameOf(service);
    }
    world.faults().failService(Service::omResolveAnyClass, Fault::interrupt);
    EXPECT_THROW(ResolvedClassID(nullptr, u"Account"), InterruptException);
}

TEST_F(ResolvedClassIDTest, HostFailureInAGivenScopeGivesTheRawName) {
    world.contextResolution(true);
    for (const Fault fault : failuresButInterrupt) {
        world.faults().failService(Service::omResolveAnyClass, fault);
        EXPECT_EQ(nameOf(ResolvedClassID(nullptr, u"Account")), "Account") << fault;
    }
}

TEST_F(ResolvedClassIDTest, FailureOfTheSwitchItselfPassesOutOfTheScopeConstructor) {
    world.faults().failService(Service::featureIsOn, Fault::standardException);
    EXPECT_THROW(ResolvedClassID(nullptr, u"Account"), std::runtime_error);
}

TEST_F(ResolvedClassIDTest, FailedInterningOfTheResolvedNameFallsBackToTheRawName) {
    world.contextResolution(true);
    world.cls("bank.Account");
    world.imports(world.scope(u"f.k"), "Account", "bank.Account");
    world.faults().failService(Service::makeInterned, 1, Fault::badAlloc);
    EXPECT_EQ(nameOf(ResolvedClassID(u"f.k", u"Account")), "Account");
}

TEST_F(ResolvedClassIDTest, NameThatCannotBeConvertedPassesTheFailureOn) {
    world.faults().failService(Service::toString, Fault::standardException);
    EXPECT_THROW(ResolvedClassID(u"f.k", u"Account"), std::runtime_error);
    EXPECT_THROW(ResolvedClassID(nullptr, u"Account"), std::runtime_error);
}

TEST_F(ResolvedClassIDTest, OfAValueIsTheClassThatTheHostReports) {
    const qxUniqueArray account = world.object("bank.Account");
    EXPECT_EQ(nameOf(ResolvedClassID(account.get())), "bank.Account");
    const qxUniqueArray number = world.number(1);
    EXPECT_TRUE(ResolvedClassID(number.get()).isNull());
}

TEST_F(ResolvedClassIDTest, KnownNamesAreTakenUnchecked) {
    EXPECT_EQ(nameOf(ResolvedClassID::fromKnownResolvedClassID(std::string("no such class"))), "no such class");
    EXPECT_EQ(nameOf(ResolvedClassID::fromKnownResolvedClassID(std::u16string(u".dotted"))), ".dotted");
    EXPECT_EQ(world.journal().countOf(Service::getClass), 0U);
    const zelk::COSInternedID handle = zelk::internal::makeInterned("x.Y");
    EXPECT_EQ(ResolvedClassID::fromKnownResolvedClassID(handle).get(), handle);
}

TEST_F(ResolvedClassIDTest, EmptyKnownNameIsNullAndNeverInterned) {
    EXPECT_TRUE(ResolvedClassID::fromKnownResolvedClassID(std::string()).isNull());
    EXPECT_TRUE(ResolvedClassID::fromKnownResolvedClassID(std::u16string()).isNull());
    EXPECT_EQ(world.journal().countOf(Service::makeInterned), 0U);
}

TEST_F(ResolvedClassIDTest, LegacyNameGivesTheCanonicalIdentity) {
    world.cls("bank.Account");
    world.legacyName("Account", "bank.Account");
    EXPECT_EQ(nameOf(ResolvedClassID::fromLegacyString(std::string("Account"))), "bank.Account");
    EXPECT_EQ(nameOf(ResolvedClassID::fromLegacyString(std::u16string(u"Account"))), "bank.Account");
}

TEST_F(ResolvedClassIDTest, LegacyNameOfNoClassThrowsWithTheNameAsPassed) {
    world.cls("bank.Draft").undefined();
    for (const std::string name : {"no.such.Class", "bank.Draft", ""}) {
        try {
            ResolvedClassID::fromLegacyString(name);
            ADD_FAILURE() << "no exception for '" << name << "'";
        } catch (const BadClassNameException& bad) {
            EXPECT_EQ(bad.getBadClassName(), name);
            EXPECT_EQ(bad.getMessage(), "");
        }
    }
}

TEST_F(ResolvedClassIDTest, LegacyNameInUtf16IsReportedAfterConversionToAscii) {
    try {
        ResolvedClassID::fromLegacyString(std::u16string(u"gr\u00F6\u00DFe"));
        ADD_FAILURE() << "no exception";
    } catch (const BadClassNameException& bad) {
        EXPECT_EQ(bad.getBadClassName(), "gr??e");
    }
}

TEST_F(ResolvedClassIDTest, LegacyLookUpPassesHostFailuresOn) {
    world.cls("bank.Account");
    for (const Service service :
         {Service::makeInterned, Service::getClass, Service::classGetDefinition, Service::classGetID}) {
        world.faults().failService(service, Fault::standardException);
        EXPECT_THROW(ResolvedClassID::fromLegacyString(std::string("bank.Account")), std::runtime_error);
        world.faults().failService(service, Fault::interrupt);
        EXPECT_THROW(ResolvedClassID::fromLegacyString(std::string("bank.Account")), InterruptException);
    }
}

TEST_F(ResolvedClassIDTest, BadClassNameExceptionTravelsThroughTheExceptionTransport) {
    const BadClassNameException original("no.such.Class");
    const auto* copy = original.clone();
    EXPECT_THROW(copy->rethrow(), BadClassNameException);
    try {
        copy->rethrow();
    } catch (const foundation::core::except::IInternalException& caught) {
        EXPECT_EQ(dynamic_cast<const BadClassNameException&>(caught).getBadClassName(), "no.such.Class");
    }
    delete copy;
}

TEST_F(ResolvedClassIDTest, BadClassNameExceptionCopiesAndMovesItsName) {
    BadClassNameException original("no.such.Class");
    const BadClassNameException copy(original);
    EXPECT_EQ(copy.getBadClassName(), "no.such.Class");
    const BadClassNameException moved(std::move(original));
    EXPECT_EQ(moved.getBadClassName(), "no.such.Class");
}

TEST_F(ResolvedClassIDTest, AlreadyResolvedNamesAreToldByTheirPackageAndInternNothing) {
    EXPECT_TRUE(ResolvedClassID::isAlreadyResolved(std::string("teller:bank.Account")));
    EXPECT_TRUE(ResolvedClassID::isAlreadyResolved(std::u16string(u"teller:bank.Account")));
    EXPECT_FALSE(ResolvedClassID::isAlreadyResolved(std::string("bank.Account")));
    EXPECT_FALSE(ResolvedClassID::isAlreadyResolved(std::u16string()));
    EXPECT_EQ(world.journal().countOf(Service::makeInterned), 0U);
}

TEST_F(ResolvedClassIDTest, NamesWithAndWithoutTheSoftwarePackage) {
    const ResolvedClassID id = ResolvedClassID::fromKnownResolvedClassID(std::string("teller:bank.Account"));
    EXPECT_EQ(id.getComponentQualifiedName(), u"teller:bank.Account");
    EXPECT_EQ(id.getNonComponentQualifiedName(), u"bank.Account");
}

TEST_F(ResolvedClassIDTest, NamesOfTheNullIdentityAreEmpty) {
    EXPECT_EQ(ResolvedClassID().getComponentQualifiedName(), u"");
    EXPECT_EQ(ResolvedClassID().getNonComponentQualifiedName(), u"");
    EXPECT_TRUE(world.journal().calls().empty());
}

TEST_F(ResolvedClassIDTest, FocusIsWhereTheDebuggerIsStopped) {
    world.debuggerStoppedAt(u"focus.k", 7, 3);
    const ResolvedClassID::DebuggerFocus focus = ResolvedClassID::GetDebuggerFocus();
    EXPECT_EQ(focus.fileName, u"focus.k");
    EXPECT_EQ(focus.focusPosition1, 7);
    EXPECT_EQ(focus.focusPosition2, 3);
}

TEST_F(ResolvedClassIDTest, NoFocusWhileTheDebuggerRuns) {
    world.debuggerStoppedAt(u"focus.k", 7, 3);
    world.debuggerRuns();
    const ResolvedClassID::DebuggerFocus focus = ResolvedClassID::GetDebuggerFocus();
    EXPECT_EQ(focus.fileName, u"");
    EXPECT_EQ(focus.focusPosition1, 0);
    EXPECT_EQ(focus.focusPosition2, 0);
}

TEST_F(ResolvedClassIDTest, NoFocusWithoutAnInterpreter) {
    world.debuggerStoppedAt(u"focus.k");
    world.noInterpreter();
    EXPECT_EQ(ResolvedClassID::GetDebuggerFocus().fileName, u"");
}

}  // namespace
