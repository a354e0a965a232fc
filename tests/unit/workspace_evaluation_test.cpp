// Where a walk over a chain cannot go on, and what becomes of its failures.
#include "tests/unit/workspace_value_test.h"

namespace {

using foundation::core::except::InterruptException;
using memory_host::Call;
using memory_host::Evaluation;
using memory_host::Fault;
using memory_host::Service;
using testing::Contains;
using testing::IsEmpty;
using testing::SizeIs;

using WorkspaceEvaluationTest = WorkspaceValueTest;

// Where the text is evaluated.

TEST_F(WorkspaceEvaluationTest, IndexIsEvaluated) {
    qxUniqueArray several = world.structure({1, 3});
    world.setField(several, "a", world.number(7), 1);
    world.variable("s", std::move(several));
    expectEvaluated(u"s(2).a", 7);
    EXPECT_EQ(world.journal().countOf(Service::qxSetArrayScope), 1U);
}

TEST_F(WorkspaceEvaluationTest, EvaluationAsksForOneResultWithTheFlagOff) {
    world.variable("s", world.number(7));
    expectEvaluated(u"s(1)", 7);
    ASSERT_THAT(world.evaluations(), SizeIs(1));
    EXPECT_EQ(world.evaluations()[0].outputCount, 1);
    EXPECT_FALSE(world.evaluations()[0].flag);
    EXPECT_EQ(static_cast<int>(world.evaluations()[0].source), 3);
}

TEST_F(WorkspaceEvaluationTest, EvaluatedValueOutlivesTheTemporaryScopeAndIsDestroyedOnce) {
    world.variable("s", world.doubles({1, 2}, {7, 8}));
    qxSharedArray value = GetValueFromCurrentWorkspace(u"s(2)");
    world.endTemporaryScope();
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(*qxGetDoubles(value.get()), 8);
    EXPECT_EQ(world.valuesAlive(), 2U);
    value.reset();
    EXPECT_EQ(world.valuesAlive(), 1U);
}

TEST_F(WorkspaceEvaluationTest, IndexThatFailsIsNoValueAndNothingIsPrinted) {
    world.errorMode(static_cast<qxErrorMode>(7));
    world.variable("s", world.structure({1, 2}));
    expectEvaluatedInVain(u"s(3).a");
    expectEvaluatedInVain(u"s(1).a");
    expectEvaluatedInVain(u"s(");
    EXPECT_EQ(seen(), u"");
    EXPECT_EQ(world.diversions(), 0U);
    EXPECT_EQ(world.errorMode(), static_cast<qxErrorMode>(7));
}

TEST_F(WorkspaceEvaluationTest, ErrorsAreDisabledWhileTheTextIsEvaluated) {
    qxErrorMode inside{};
    world.errorMode(static_cast<qxErrorMode>(7));
    world.function("look", [&](const qxArray*) {
        inside = world.errorMode();
        world.print(u"looking");
        return world.number(1);
    });
    world.variable("s", world.number(7));
    expectEvaluated(u"s(look)", 7);
    EXPECT_EQ(static_cast<int>(inside), -1);
    EXPECT_EQ(world.errorMode(), static_cast<qxErrorMode>(7));
    EXPECT_EQ(seen(), u"");
}

TEST_F(WorkspaceEvaluationTest, TrailingDotIsEvaluatedInVain) {
    world.variable("s", structureWith("a", world.number(7)));
    expectEvaluatedInVain(u"s.");
    expectEvaluatedInVain(u"s.a.");
    EXPECT_EQ(seen(), u"");
}

TEST_F(WorkspaceEvaluationTest, TrailingDotAfterSeveralElementsOrAPlainValueIsEvaluatedToo) {
    world.variable("s", world.structure({1, 2}));
    expectEvaluatedInVain(u"s.");
    world.variable("v", world.number(7));
    expectEvaluatedInVain(u"v.");
    EXPECT_EQ(world.journal().countOf(Service::qxIsScalar), 0U);
}

TEST_F(WorkspaceEvaluationTest, DotThatNoNameFollowsIsEvaluated) {
    world.variable("s", structureWith("a", world.number(7)));
    for (const char16_t* text : {u"s..a", u"s.(a)", u"s. a", u"s.1", u"s._a", u"s.'a'"}) {
        const std::size_t before = world.evaluations().size();
        GetValueFromCurrentWorkspace(text);
        EXPECT_EQ(world.evaluations().size(), before + 1);
    }
    EXPECT_EQ(world.journal().countOf(Service::qxGetField), 0U);
}

TEST_F(WorkspaceEvaluationTest, FieldThatIsNotThereOrNotSetIsEvaluated) {
    world.variable("s", structureWith("a", qxUniqueArray()));
    expectEvaluatedInVain(u"s.a");
    expectEvaluatedInVain(u"s.b");
    expectEvaluatedInVain(u"s.b.c.d");
    EXPECT_EQ(world.journal().countOf(Service::qxGetField), 3U);  // the walk ends at the first that yields nothing
}

TEST_F(WorkspaceEvaluationTest, MemberThatTheClassDoesNotDeclareIsEvaluated) {
    world.cls("bank.Account").property("balance");
    world.variable("account", objectWith("bank.Account", "dynamic", world.number(7)));
    expectEvaluated(u"account.dynamic", 7);
    expectEvaluatedInVain(u"account.nothing");
    EXPECT_EQ(world.journal().countOf(Service::qxGetPropertyShared), 0U);
}

TEST_F(WorkspaceEvaluationTest, PropertyThatYieldsNothingIsEvaluated) {
    world.cls("bank.Account").property("balance").property("unset");
    world.variable("account", objectWith("bank.Account", "unset", qxUniqueArray()));
    expectEvaluatedInVain(u"account.balance");
    expectEvaluatedInVain(u"account.unset");
}

TEST_F(WorkspaceEvaluationTest, PropertyWhoseReadingFailsIsEvaluatedTheInterruptIncluded) {
    world.cls("bank.Account").property("balance");
    world.variable("account", objectWith("bank.Account", "balance", world.number(7)));
    world.faults().failService(Service::qxGetPropertyShared, Fault::interrupt);
    expectEvaluated(u"account.balance", 7);
}

TEST_F(WorkspaceEvaluationTest, NameThatAForeignValueDoesNotListIsEvaluated) {
    qxUniqueArray foreign = opaqueWith({u"length"}, {u"bytes"});
    world.setProperty(foreign, "name", world.number(7));
    world.variable("text", std::move(foreign));
    expectEvaluated(u"text.name", 7);
    EXPECT_EQ(world.journal().countOf(Service::qxGetPropertyShared), 0U);
}

TEST_F(WorkspaceEvaluationTest, TextAfterANameThatIsNoDotIsEvaluated) {
    world.variable("s", structureWith("a", world.number(7)));
    expectEvaluated(u"s.a;", 7);
    expectEvaluated(u"s.a ", 7);
    expectEvaluated(u"s .a", 7);
    expectEvaluated(u"s.a(1)", 7);
    expectEvaluatedInVain(u"s.a + 1");
    expectEvaluatedInVain(u"s{1}");
}

TEST_F(WorkspaceEvaluationTest, ChainIsWalkedUpToTheTextThatStopsIt) {
    world.cls("bank.Account").method("deposit");
    world.variable("s", structureWith("account", world.object("bank.Account")));
    expectStopped(u"s.account.deposit(1)");
    expectStopped(u"s.account.deposit;");
}

TEST_F(WorkspaceEvaluationTest, MethodBehindAnIndexIsEvaluatedAndCalled) {
    std::size_t calls = 0;
    world.cls("bank.Account").method("deposit").answers("deposit", [&](const qxArray*) {
        ++calls;
        return world.number(7);
    });
    world.variable("account", world.object("bank.Account"));
    expectEvaluated(u"account(1).deposit", 7);
    EXPECT_EQ(calls, 1U);
}

TEST_F(WorkspaceEvaluationTest, TextIsEvaluatedAsItWasPassedThoughItIsWalkedInAscii) {
    world.variable("s", world.number(7));
    expectEvaluatedInVain(u"s\u00E9");
    std::u16string text = u"s";
    text.push_back(char16_t{0xD800});
    expectEvaluatedInVain(text);
    EXPECT_THAT(world.journal().calls(), Contains(Call{Service::inGetValueFromCurrentWorkspace, "s"}));
}

TEST_F(WorkspaceEvaluationTest, WithoutAnInterpreterThereIsTheWalkAlone) {
    world.variable("s", structureWith("a", world.number(7)));
    world.noInterpreter();
    expectWalked(u"s.a", 7);
    EXPECT_EQ(GetValueFromCurrentWorkspace(u"s(1).a"), nullptr);
    EXPECT_THAT(world.evaluations(), IsEmpty());
}

TEST_F(WorkspaceEvaluationTest, AnythingThrownByTheEvaluationIsNoValue) {
    world.variable("s", world.number(7));
    for (const Fault fault :
         {Fault::interrupt, Fault::hostException, Fault::standardException, Fault::thrownInt, Fault::badAlloc}) {
        for (const Service service :
             {Service::inValidInterpreterAvailable, Service::standardOutput, Service::streamPush,
              Service::standardError, Service::getErrorMode, Service::inEvalExp, Service::qxSetArrayScope}) {
            world.faults().failService(service, fault);
            EXPECT_EQ(GetValueFromCurrentWorkspace(u"s(1)"), nullptr) << nameOf(service) << " " << fault;
            EXPECT_EQ(world.diversions(), 0U);
            EXPECT_EQ(world.valuesAlive(), 1U);
        }
    }
    world.function("wait", [](const qxArray*) -> qxUniqueArray { throw InterruptException(); });
    world.faults().clear();
    expectEvaluatedInVain(u"s(wait)");
}

TEST_F(WorkspaceEvaluationTest, ResultOfAFailedEvaluationIsDestroyedOnce) {
    world.variable("s", world.number(7));
    world.evaluatedBy([this](const Evaluation&, qxArray** outputs) {
        *outputs = world.number(1).release();
        return static_cast<inExecutionStatus>(1);
    });
    expectEvaluatedInVain(u"s(1)");
    EXPECT_EQ(world.valuesAlive(), 1U);
    world.evaluatedBy([this](const Evaluation&, qxArray** outputs) -> inExecutionStatus {
        *outputs = world.number(1).release();
        throw InterruptException();
    });
    expectEvaluatedInVain(u"s(1)");
    EXPECT_EQ(world.valuesAlive(), 1U);
    EXPECT_EQ(world.journal().countOf(Service::qxSetArrayScope), 0U);
}

TEST_F(WorkspaceEvaluationTest, SuccessWithoutAResultIsNoValue) {
    world.variable("s", world.number(7));
    world.evaluatedBy([](const Evaluation&, qxArray**) { return inExecutionStatus::success; });
    expectEvaluatedInVain(u"s(1)");
    EXPECT_EQ(world.journal().countOf(Service::qxSetArrayScope), 0U);
}

// Failures of the walk.

TEST_F(WorkspaceEvaluationTest, FailuresOfTheWalkPass) {
    world.cls("bank.Account").property("balance");
    world.variable("s", structureWith("account", objectWith("bank.Account", "balance", world.number(7))));
    for (const Service service :
         {Service::toString, Service::qxCreateClassArray, Service::inGetValueFromCurrentWorkspace, Service::qxIsScalar,
          Service::qxGetClassID, Service::qxGetField, Service::omGetCOSClassID, Service::classFindMethods,
          Service::iteratorHasMoreElements, Service::classFindProperty}) {
        world.faults().failService(service, Fault::interrupt);
        EXPECT_THROW(GetValueFromCurrentWorkspace(u"s.account.balance"), InterruptException) << nameOf(service);
        world.faults().failService(service, Fault::standardException);
        EXPECT_THROW(GetValueFromCurrentWorkspace(u"s.account.balance"), std::runtime_error) << nameOf(service);
    }
    EXPECT_THAT(world.evaluations(), IsEmpty());
    EXPECT_EQ(world.handlesAlive(), 0U);
}

TEST_F(WorkspaceEvaluationTest, ClassThatCannotBeLookedUpMakesItsObjectAPlainValue) {
    world.cls("bank.Account").property("balance");
    world.variable("account", objectWith("bank.Account", "balance", world.number(7)));
    world.faults().failService(Service::getClass, Fault::standardException);
    expectStopped(u"account.balance");
    world.faults().failService(Service::getClass, Fault::interrupt);
    EXPECT_THROW(GetValueFromCurrentWorkspace(u"account.balance"), InterruptException);
}

// Texts that nobody types.

TEST_F(WorkspaceEvaluationTest, MonstrousTextsAreNoValues) {
    world.variable("s", structureWith("a", world.number(7)));
    std::u16string manyDots = u"s";
    for (int step = 0; step < 500'000; ++step) {
        manyDots += u".a";
    }
    expectStopped(manyDots);
    expectStopped(std::u16string(1'000'000, u's'));
    expectStopped(std::u16string(1'000'000, u'.'));
    expectStopped(std::u16string(10'000, u'('));
    expectEvaluatedInVain(u"s" + std::u16string(1'000'000, u'.'));
    expectEvaluatedInVain(u"s" + std::u16string(10'000, u'('));
    expectEvaluatedInVain(u"s." + std::u16string(1'000'000, u'a'));
    std::u16string nested = u"s";
    for (int depth = 0; depth < 10'000; ++depth) {
        nested += u"(s";
    }
    expectEvaluatedInVain(nested + std::u16string(10'000, u')'));
    EXPECT_EQ(seen(), u"");
}

TEST_F(WorkspaceEvaluationTest, LoneSurrogatesAndZeroesAreNoNames) {
    world.variable("s", structureWith("a", world.number(7)));
    expectStopped(std::u16string(1, char16_t{0xD800}));
    expectStopped(std::u16string(1, u'\0'));
    expectEvaluatedInVain(std::u16string(u"s.") + char16_t{0xDC00});
    expectEvaluatedInVain(std::u16string(u"s.a") + u'\0');
}

TEST_F(WorkspaceEvaluationTest, NothingIsRememberedBetweenCalls) {
    world.variable("s", structureWith("a", world.number(7)));
    EXPECT_EQ(numberOf(u"s.a"), 7);
    world.variable("s", structureWith("a", world.number(8)));
    EXPECT_EQ(numberOf(u"s.a"), 8);
}

}  // namespace
