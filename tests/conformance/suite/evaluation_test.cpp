#include "host/evaluation.h"

#include "host/error_mode.h"
#include "host/text.h"
#include "tests/conformance/suite/suite.h"
#include "tests/conformance/suite/value_kinds.h"

namespace {

using conformance::ValueKind;
using foundation::core::except::IException;
using foundation::core::except::InterruptException;

class Evaluation : public conformance::Conformance {
protected:
    struct Outcome {
        inExecutionStatus status;
        qxUniqueArray value;
    };
    static Outcome evaluated(const std::u16string& expression) {
        qxArray* output = nullptr;
        const inExecutionStatus status = inEvalExp(expression, 1, &output, false, inEvaluationSource::introspection);
        qxUniqueArray owned(output);
        if (owned) {
            qxSetArrayScope(owned.get(), qxArrayScope::none);
        }
        return {status, std::move(owned)};
    }
};

TEST_F(Evaluation, FindsAVariableByItsName) {
    CONFORMANCE_NEEDS(provider().setVariable("known", ValueKind::doubleScalar), "variables");
    const qxSharedArray value = inGetValueFromCurrentWorkspace("known");
    ASSERT_TRUE(value);
    EXPECT_EQ(*qxGetDoubles(value.get()), 2.5);
    EXPECT_FALSE(inGetValueFromCurrentWorkspace("know"));
    EXPECT_FALSE(inGetValueFromCurrentWorkspace("Known"));
}

TEST_F(Evaluation, FindsNoVariableOfNoNameOrAnUnknownOne) {
    EXPECT_FALSE(inGetValueFromCurrentWorkspace(""));
    EXPECT_FALSE(inGetValueFromCurrentWorkspace(conformance::unknownName));
}

TEST_F(Evaluation, SharesAVariableWithItsWorkspace) {
    CONFORMANCE_NEEDS(provider().setVariable("known", ValueKind::doubleScalar), "variables");
    const qxSharedArray value = inGetValueFromCurrentWorkspace("known");
    ASSERT_TRUE(provider().setVariable("known", ValueKind::text));
    EXPECT_EQ(*qxGetDoubles(value.get()), 2.5) << "the handle outlives the assignment";
    EXPECT_EQ(getScalarText(inGetValueFromCurrentWorkspace("known").get()), u"some text");
}

TEST_F(Evaluation, SaysWhetherItCanBeHad) {
    const auto subject = provider().expressions();
    const bool isAvailable = inValidInterpreterAvailable();
    CONFORMANCE_NEEDS(subject, "expressions");
    EXPECT_TRUE(isAvailable);
}

TEST_F(Evaluation, GivesTheValueOfAnExpression) {
    const auto subject = provider().expressions();
    CONFORMANCE_NEEDS(subject, "expressions");
    const Outcome outcome = evaluated(subject->good);
    EXPECT_EQ(outcome.status, inExecutionStatus::success);
    ASSERT_TRUE(outcome.value);
    EXPECT_EQ(*qxGetDoubles(outcome.value.get()), 2.5);
}

TEST_F(Evaluation, AnswersAnErrorOfTheExpressionWithAStatus) {
    const auto subject = provider().expressions();
    CONFORMANCE_NEEDS(subject, "expressions");
    const qxErrorMode before = getErrorMode();
    setErrorMode(qxErrorMode::disabled);
    EXPECT_NE(evaluated(subject->failing).status, inExecutionStatus::success);
    EXPECT_NE(evaluated(u"").status, inExecutionStatus::success);
    EXPECT_NE(evaluated(u")(").status, inExecutionStatus::success);
    EXPECT_EQ(evaluated(subject->good).status, inExecutionStatus::success) << "the next one is not concerned";
    setErrorMode(before);
}

TEST_F(Evaluation, ThrowsTheInterrupt) {
    const std::u16string expression = provider().interruptedExpression();
    CONFORMANCE_NEEDS(!expression.empty(), "expressions that the interrupt ends");
    EXPECT_THROW(evaluated(expression), InterruptException);
}

TEST_F(Evaluation, CallsAFunctionThatAValueNames) {
    const auto subject = provider().objectWithProperty();
    CONFORMANCE_NEEDS(subject, "objects with properties that can be read");
    const qxUniqueArray name = qxCreateString(u"properties");
    const qxArray* inputs[] = {name.get(), subject->object.get()};
    qxArray* output = nullptr;
    inFullFevalFcn(1, &output, 2, inputs);
    const qxUniqueArray names(output);
    ASSERT_TRUE(names);
    EXPECT_EQ(qxGetClassID(names.get()), qxClassID::cell);
}

TEST_F(Evaluation, FailsAtAnUnknownFunction) {
    const qxUniqueArray name = qxCreateString(u"no_such_function");
    const qxArray* inputs[] = {name.get(), name.get()};
    qxArray* output = nullptr;
    EXPECT_THROW(inFullFevalFcn(1, &output, 2, inputs), IException);
    EXPECT_EQ(output, nullptr);
}

TEST_F(Evaluation, TrapsTheErrorOfAFunctionWhenToldSo) {
    const qxUniqueArray argument = qxCreateString(u"argument");
    const qxArray* inputs[] = {argument.get()};
    qxArray* output = nullptr;
    EXPECT_NE(inCallFcnWithTrap(1, &output, 1, inputs, "no_such_function", true), 0);
    EXPECT_EQ(output, nullptr);
    EXPECT_THROW(inCallFcnWithTrap(1, &output, 1, inputs, "no_such_function", false), IException);
    EXPECT_EQ(output, nullptr);
}

TEST_F(Evaluation, TrapsNoInterrupt) {
    const auto subject = provider().interruptedFunction();
    CONFORMANCE_NEEDS(subject, "functions that the interrupt ends");
    const qxArray* inputs[] = {subject->argument.get()};
    qxArray* output = nullptr;
    EXPECT_THROW(inCallFcnWithTrap(1, &output, 1, inputs, subject->function.c_str(), true), InterruptException);
    EXPECT_EQ(output, nullptr);
}

}  // namespace
