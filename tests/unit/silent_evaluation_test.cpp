#include "contextdata/workspace.h"
#include "host/text.h"
#include "tests/support/world_test.h"

namespace {

using foundation::core::except::InterruptException;
using memory_host::Call;
using memory_host::Evaluation;
using memory_host::Fault;
using memory_host::Service;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr auto formerMode = static_cast<qxErrorMode>(7);

class SilentEvaluationTest : public WorldTest {
protected:
    SilentEvaluationTest() {
        world.errorMode(formerMode);
        world.variable("x", world.number(7));
    }

    bool evaluate(const std::u16string& expression, bool flag = false) {
        qxArray* output = nullptr;
        const bool successful = EvalcExpSuccessful(expression, 1, &output, flag);
        result.reset(output);
        return successful;
    }

    /// The text that programs printed and that reached the person, once nothing is held back any more.
    std::u16string seen() {
        OutputStream::standardOutput().flush();
        OutputStream::standardError().flush();
        return world.shown() + world.shownErrors();
    }

    void expectRestored() {
        EXPECT_EQ(world.diversions(), 0U);
        EXPECT_EQ(world.errorMode(), formerMode);
        for (const auto& sink : world.sinks()) {
            EXPECT_TRUE(sink.expired());
        }
    }

    /// All calls of the host, with what they were asked about.
    std::vector<std::string> journal() {
        std::vector<std::string> calls;
        for (const Call& call : world.journal().calls()) {
            calls.push_back(std::string(nameOf(call.service)) + (call.argument.empty() ? "" : " " + call.argument));
        }
        return calls;
    }

    qxUniqueArray result;
};

TEST_F(SilentEvaluationTest, SuccessGivesTheResultToTheCaller) {
    EXPECT_TRUE(evaluate(u"x"));
    ASSERT_NE(result, nullptr);
    EXPECT_EQ(*qxGetDoubles(result.get()), 7);
    expectRestored();
}

TEST_F(SilentEvaluationTest, StatusOtherThanSuccessIsFalse) {
    EXPECT_FALSE(evaluate(u"nothing"));
    EXPECT_EQ(result, nullptr);
    expectRestored();
    for (const int status : {1, -1, 3}) {
        world.evaluatedBy([status](const Evaluation&, qxArray**) { return static_cast<inExecutionStatus>(status); });
        EXPECT_FALSE(evaluate(u"x")) << status;
        expectRestored();
    }
}

TEST_F(SilentEvaluationTest, WithoutAnInterpreterNothingIsTouched) {
    world.noInterpreter();
    const qxUniqueArray mark = world.number(1);
    qxArray* output = mark.get();
    EXPECT_FALSE(EvalcExpSuccessful(u"x", 1, &output, true));
    EXPECT_EQ(output, mark.get());
    EXPECT_THAT(journal(), ElementsAre("inValidInterpreterAvailable"));
    EXPECT_THAT(world.sinks(), IsEmpty());
    expectRestored();
}

TEST_F(SilentEvaluationTest, StreamsAreDivertedInOneOrderAndRestoredInTheOther) {
    EXPECT_TRUE(evaluate(u"x"));
    EXPECT_THAT(journal(),
                ElementsAre("inValidInterpreterAvailable", "OutputStream::standardOutput", "OutputStream::push output",
                            "OutputStream::standardError", "OutputStream::push error", "getErrorMode", "setErrorMode",
                            "inEvalExp", "setErrorMode", "OutputStream::flush error", "OutputStream::pop error",
                            "OutputStream::flush output", "OutputStream::pop output"));
}

TEST_F(SilentEvaluationTest, BothStreamsShareOneSinkThatGoesWithTheCall) {
    bool isShared = false;
    world.whenCalled(Service::inEvalExp, [&] {
        isShared = world.sinks().size() == 2 && world.sinks()[0].lock() != nullptr &&
                   world.sinks()[0].lock() == world.sinks()[1].lock();
    });
    EXPECT_TRUE(evaluate(u"x"));
    EXPECT_TRUE(isShared);
    EXPECT_THAT(world.sinks(), SizeIs(2));
    expectRestored();
}

TEST_F(SilentEvaluationTest, EachCallHasASinkOfItsOwn) {
    std::vector<boost::shared_ptr<OutputSink>> held;
    world.whenCalled(Service::inEvalExp, [&] { held.push_back(world.sinks().back().lock()); });
    EXPECT_TRUE(evaluate(u"x"));
    EXPECT_TRUE(evaluate(u"x"));
    ASSERT_THAT(held, SizeIs(2));
    EXPECT_NE(held[0], held[1]);
}

TEST_F(SilentEvaluationTest, ErrorsAreDisabledWhileTheExpressionRunsAndNoLonger) {
    qxErrorMode inside{};
    world.function("look", [&](const qxArray*) {
        inside = world.errorMode();
        EXPECT_EQ(world.diversions(), 2U);
        return world.number(1);
    });
    EXPECT_TRUE(evaluate(u"look"));
    EXPECT_EQ(static_cast<int>(inside), -1);
    expectRestored();
}

TEST_F(SilentEvaluationTest, ErrorModeIsBackBeforeTheStreamsAre) {
    std::vector<qxErrorMode> modes;
    world.whenCalled(Service::streamFlush, [&] { modes.push_back(world.errorMode()); });
    world.whenCalled(Service::streamPush, [&] { modes.push_back(world.errorMode()); });
    EXPECT_TRUE(evaluate(u"x"));
    EXPECT_THAT(modes, ElementsAre(formerMode, formerMode, formerMode, formerMode));
}

TEST_F(SilentEvaluationTest, WhatIsPrintedMeanwhileReachesNobody) {
    world.function("speak", [&](const qxArray*) {
        world.print(u"out loud");
        world.printError(u"in anger");
        return world.number(1);
    });
    EXPECT_TRUE(evaluate(u"speak"));
    EXPECT_EQ(seen(), u"");
}

TEST_F(SilentEvaluationTest, WhatAFailingExpressionPrintsReachesNobody) {
    world.function("speak", [&](const qxArray*) -> qxUniqueArray {
        world.print(u"out loud");
        throw TextException("MissingNotSupported");
    });
    EXPECT_FALSE(evaluate(u"speak"));
    world.function("shout", [&](const qxArray*) -> qxUniqueArray {
        world.printError(u"in anger");
        throw std::runtime_error("out of breath");
    });
    EXPECT_THROW(evaluate(u"shout"), std::runtime_error);
    EXPECT_EQ(seen(), u"");
    expectRestored();
}

TEST_F(SilentEvaluationTest, ErrorOfTheExpressionIsNotSaid) {
    EXPECT_FALSE(evaluate(u"nothing"));
    EXPECT_FALSE(evaluate(u"x("));
    EXPECT_EQ(seen(), u"");
}

TEST_F(SilentEvaluationTest, WhatWasPrintedBeforeReachesThePerson) {
    world.print(u"before");
    world.printError(u"warning");
    EXPECT_TRUE(evaluate(u"x"));
    EXPECT_EQ(world.shown(), u"before");
    EXPECT_EQ(world.shownErrors(), u"warning");
}

TEST_F(SilentEvaluationTest, WhatIsPrintedAfterwardsReachesThePerson) {
    EXPECT_TRUE(evaluate(u"x"));
    world.print(u"after");
    world.printError(u"trouble");
    EXPECT_EQ(seen(), u"aftertrouble");
}

TEST_F(SilentEvaluationTest, InterpreterIsAskedWithSourceThreeAndTheFlagAsGiven) {
    evaluate(u"x", true);
    evaluate(u"x;", false);
    ASSERT_THAT(world.evaluations(), SizeIs(2));
    EXPECT_EQ(world.evaluations()[0].expression, u"x");
    EXPECT_TRUE(world.evaluations()[0].flag);
    EXPECT_EQ(world.evaluations()[1].expression, u"x;");
    EXPECT_FALSE(world.evaluations()[1].flag);
    for (const Evaluation& asked : world.evaluations()) {
        EXPECT_EQ(static_cast<int>(asked.source), 3);
        EXPECT_EQ(asked.outputCount, 1);
    }
}

TEST_F(SilentEvaluationTest, ResultsAreWrittenToThePlacesOfTheCaller) {
    world.evaluatedBy([this](const Evaluation& asked, qxArray** outputs) {
        for (int number = 0; number < asked.outputCount; ++number) {
            outputs[number] = world.number(number).release();
        }
        return inExecutionStatus::success;
    });
    qxArray* outputs[3] = {};
    EXPECT_TRUE(EvalcExpSuccessful(u"deal", 3, outputs, false));
    for (int number = 0; number < 3; ++number) {
        const qxUniqueArray owned(outputs[number]);
        ASSERT_NE(owned, nullptr);
        EXPECT_EQ(*qxGetDoubles(owned.get()), number);
    }
    EXPECT_TRUE(EvalcExpSuccessful(u"deal", 0, nullptr, false));
    EXPECT_EQ(world.evaluations().back().outputCount, 0);
}

TEST_F(SilentEvaluationTest, ResultOfAFailedEvaluationBelongsToTheCaller) {
    world.evaluatedBy([this](const Evaluation&, qxArray** outputs) {
        *outputs = world.number(1).release();
        return static_cast<inExecutionStatus>(1);
    });
    EXPECT_FALSE(evaluate(u"x"));
    EXPECT_NE(result, nullptr);
}

TEST_F(SilentEvaluationTest, ResultStaysInTheTemporaryScope) {
    EXPECT_TRUE(evaluate(u"x"));
    EXPECT_EQ(world.journal().countOf(Service::qxSetArrayScope), 0U);
}

TEST_F(SilentEvaluationTest, EveryFailureOnTheWayPassesOnceEverythingIsRestored) {
    for (const Service service : {Service::inValidInterpreterAvailable, Service::standardOutput, Service::streamPush,
                                  Service::standardError, Service::getErrorMode, Service::inEvalExp}) {
        world.faults().failService(service, Fault::interrupt);
        EXPECT_THROW(evaluate(u"x"), InterruptException) << nameOf(service);
        expectRestored();
        world.faults().failService(service, Fault::hostException);
        EXPECT_THROW(evaluate(u"x"), foundation::core::except::IException) << nameOf(service);
        expectRestored();
        world.faults().failService(service, Fault::standardException);
        EXPECT_THROW(evaluate(u"x"), std::runtime_error) << nameOf(service);
        expectRestored();
        world.faults().failService(service, Fault::thrownInt);
        EXPECT_THROW(evaluate(u"x"), int) << nameOf(service);
        expectRestored();
        world.faults().failService(service, Fault::badAlloc);
        EXPECT_THROW(evaluate(u"x"), std::bad_alloc) << nameOf(service);
        expectRestored();
    }
}

TEST_F(SilentEvaluationTest, ErrorStreamThatCannotBeDivertedGivesTheOutputStreamBack) {
    world.faults().failService(Service::streamPush, 2, Fault::interrupt);
    EXPECT_THROW(evaluate(u"x"), InterruptException);
    EXPECT_THAT(journal(),
                ElementsAre("inValidInterpreterAvailable", "OutputStream::standardOutput", "OutputStream::push output",
                            "OutputStream::standardError", "OutputStream::push error", "OutputStream::flush output",
                            "OutputStream::pop output"));
    expectRestored();
}

TEST_F(SilentEvaluationTest, InterruptRaisedByTheExpressionPasses) {
    world.function("wait", [](const qxArray*) -> qxUniqueArray { throw InterruptException(); });
    EXPECT_THROW(evaluate(u"wait"), InterruptException);
    expectRestored();
}

TEST_F(SilentEvaluationTest, DiversionsOfOthersStayInPlace) {
    const boost::shared_ptr<OutputCapture> others(new OutputCapture);
    OutputStream::standardOutput().push(others);
    world.print(u"for others");
    EXPECT_TRUE(evaluate(u"x"));
    EXPECT_EQ(world.diversions(), 1U);
    world.print(u", still");
    OutputStream::standardOutput().flush();
    EXPECT_EQ(others->getText(), u"for others, still");
    OutputStream::standardOutput().pop();
    EXPECT_EQ(seen(), u"");
}

TEST_F(SilentEvaluationTest, EvaluationWithinAnEvaluationIsSilentAndRestoresTheOuterState) {
    world.function("inner", [&](const qxArray*) {
        world.print(u"outer");
        qxArray* output = nullptr;
        EXPECT_TRUE(EvalcExpSuccessful(u"x", 1, &output, false));
        EXPECT_EQ(world.diversions(), 2U);
        EXPECT_EQ(world.errorMode(), qxErrorMode::disabled);
        return qxUniqueArray(output);
    });
    EXPECT_TRUE(evaluate(u"inner"));
    EXPECT_EQ(seen(), u"");
    expectRestored();
}

TEST_F(SilentEvaluationTest, TextsThatNoLanguageHasAreFalse) {
    std::u16string brackets(10'000, u'(');
    for (const std::u16string& text :
         {std::u16string(), std::u16string(1, char16_t{0xD800}), std::u16string(1, u'\0'), u"x" + brackets, brackets,
          std::u16string(1'000'000, u'z'), std::u16string(u"x\xDC00")}) {
        EXPECT_FALSE(evaluate(text)) << text.size();
        expectRestored();
    }
    EXPECT_EQ(seen(), u"");
}

// The guard of the error mode by itself.

TEST_F(SilentEvaluationTest, GuardDisablesErrorsForItsScope) {
    {
        const DisableErrorMode guard;
        EXPECT_EQ(static_cast<int>(world.errorMode()), -1);
    }
    EXPECT_EQ(world.errorMode(), formerMode);
}

TEST_F(SilentEvaluationTest, GuardRestoresWhileAnExceptionPasses) {
    try {
        const DisableErrorMode guard;
        throw 1;
    } catch (int) {
        EXPECT_EQ(world.errorMode(), formerMode);
    }
}

TEST_F(SilentEvaluationTest, GuardsNest) {
    const auto other = static_cast<qxErrorMode>(3);
    {
        const DisableErrorMode outer;
        world.errorMode(other);
        {
            const DisableErrorMode inner;
            EXPECT_EQ(world.errorMode(), qxErrorMode::disabled);
        }
        EXPECT_EQ(world.errorMode(), other);
    }
    EXPECT_EQ(world.errorMode(), formerMode);
}

TEST_F(SilentEvaluationTest, GuardThatCannotLearnTheModeLeavesItAlone) {
    world.faults().failService(Service::getErrorMode, Fault::standardException);
    EXPECT_THROW(DisableErrorMode(), std::runtime_error);
    EXPECT_EQ(world.errorMode(), formerMode);
    EXPECT_EQ(world.journal().countOf(Service::setErrorMode), 0U);
}

}  // namespace
