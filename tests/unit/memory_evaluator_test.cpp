// The language of the in-memory host, as the interpreter's evaluation speaks it.
#include "host/evaluation.h"
#include "host/text.h"
#include "tests/support/world_test.h"

namespace {

using foundation::core::except::InterruptException;
using memory_host::Fault;
using memory_host::Service;

class MemoryEvaluatorTest : public WorldTest {
protected:
    MemoryEvaluatorTest() {
        world.variable("x", world.doubles({1, 3}, {7, 8, 9}));
        world.errorMode(static_cast<qxErrorMode>(7));
    }

    /// The result; null when the evaluation fails.
    qxUniqueArray valueOf(const std::u16string& expression) {
        qxArray* output = nullptr;
        const inExecutionStatus status = inEvalExp(expression, 1, &output, false, inEvaluationSource::introspection);
        qxUniqueArray value(output);
        EXPECT_EQ(status == inExecutionStatus::success, value != nullptr);
        return value;
    }

    double numberOf(const std::u16string& expression) {
        const qxUniqueArray value = valueOf(expression);
        return value && qxGetClassID(value.get()) == qxClassID::float64 ? *qxGetDoubles(value.get()) : -1;
    }

    void expectError(const std::u16string& expression) { EXPECT_EQ(valueOf(expression), nullptr); }

    std::u16string complaints() {
        OutputStream::standardError().flush();
        return world.shownErrors();
    }
};

TEST_F(MemoryEvaluatorTest, NumbersTextsAndVariables) {
    EXPECT_EQ(numberOf(u"42"), 42);
    EXPECT_EQ(numberOf(u"2.5"), 2.5);
    EXPECT_EQ(numberOf(u"x"), 7);
    EXPECT_EQ(getScalarText(valueOf(u"'some text'").get()), u"some text");
    EXPECT_EQ(getScalarText(valueOf(u"''").get()), u"");
}

TEST_F(MemoryEvaluatorTest, BlanksAndASemicolonDoNotCount) {
    EXPECT_EQ(numberOf(u"  x ( 2 ) ; "), 8);
    expectError(u"x;;");
    expectError(u"x; x");
}

TEST_F(MemoryEvaluatorTest, BracketsAroundAnExpressionDoNotCount) {
    EXPECT_EQ(numberOf(u"(x)(2)"), 8);
    EXPECT_EQ(numberOf(u"( ((42)) )"), 42);
}

TEST_F(MemoryEvaluatorTest, IndicesCountFromOne) {
    EXPECT_EQ(numberOf(u"x(1)"), 7);
    EXPECT_EQ(numberOf(u"x(3)"), 9);
    EXPECT_EQ(numberOf(u"x(3)(1)"), 9);
    for (const char16_t* text : {u"x(0)", u"x(4)", u"x(1.5)", u"x()", u"x(1,2)", u"x('1')", u"x(x)", u"x(-1)"}) {
        expectError(text);
    }
}

TEST_F(MemoryEvaluatorTest, IndexOfACellGivesItsElement) {
    world.variable("c", world.cell({u"one", u"two"}));
    EXPECT_EQ(getScalarText(valueOf(u"c(2)").get()), u"two");
    std::vector<qxUniqueArray> unset(1);
    world.variable("c", world.cellOf(std::move(unset)));
    expectError(u"c(1)");
}

TEST_F(MemoryEvaluatorTest, FieldsOfOneElementAreReadAndThoseOfSeveralAreNot) {
    qxUniqueArray several = world.structure({1, 2});
    world.setField(several, "a", world.number(1), 0);
    world.setField(several, "a", world.number(2), 1);
    world.variable("s", std::move(several));
    EXPECT_EQ(numberOf(u"s(1).a"), 1);
    EXPECT_EQ(numberOf(u"s(2).a"), 2);
    expectError(u"s.a");
    expectError(u"s(2).b");
    expectError(u"s(2).");
}

TEST_F(MemoryEvaluatorTest, PropertiesComeBeforeMethods) {
    world.cls("bank.Account")
        .answers("balance", [this](const qxArray*) { return world.number(1); })
        .answers("deposit", [this](const qxArray*) { return world.number(2); });
    qxUniqueArray accounts = world.object("bank.Account", {1, 2});
    world.setProperty(accounts, 1, "balance", world.number(8));
    world.setProperty(accounts, "owner", world.number(9));
    world.variable("accounts", std::move(accounts));
    EXPECT_EQ(numberOf(u"accounts(2).balance"), 8);
    EXPECT_EQ(numberOf(u"accounts(1).balance"), 1);
    EXPECT_EQ(numberOf(u"accounts(1).owner"), 9);
    EXPECT_EQ(numberOf(u"accounts(1).deposit"), 2);
    expectError(u"accounts(1).nothing");
    expectError(u"accounts.owner");
}

TEST_F(MemoryEvaluatorTest, FunctionsAreCalledWithTheirArgument) {
    world.function("twice", [this](const qxArray* argument) {
        return argument == nullptr ? world.number(0) : world.number(2 * *qxGetDoubles(argument));
    });
    EXPECT_EQ(numberOf(u"twice"), 0);
    EXPECT_EQ(numberOf(u"twice()"), 0);
    EXPECT_EQ(numberOf(u"twice(twice(x(2)))"), 32);
    expectError(u"twice(1, 2)");
    expectError(u"thrice");
    world.function("nothing", [](const qxArray*) { return qxUniqueArray(); });
    expectError(u"nothing");
}

TEST_F(MemoryEvaluatorTest, VariableHidesAFunctionOfItsName) {
    bool called = false;
    world.function("x", [&](const qxArray*) {
        called = true;
        return world.number(1);
    });
    EXPECT_EQ(numberOf(u"x(2)"), 8);
    EXPECT_FALSE(called);
}

TEST_F(MemoryEvaluatorTest, IsaKnowsClassesAndForeignValues) {
    const auto isTrue = [this](const std::u16string& expression) {
        const qxUniqueArray value = valueOf(expression);
        return value && qxIsLogicalScalarTrue(value.get());
    };
    world.cls("bank.Account").derives("bank.Base");
    world.variable("account", world.object("bank.Account"));
    world.variable("foreign", world.opaque("java.lang.String"));
    EXPECT_TRUE(isTrue(u"isa(x, 'double')"));
    EXPECT_FALSE(isTrue(u"isa(x, 'char')"));
    EXPECT_TRUE(isTrue(u"isa(account, 'bank.Base')"));
    EXPECT_FALSE(isTrue(u"isa(account, 'opaque')"));
    EXPECT_TRUE(isTrue(u"isa(foreign, 'opaque')"));
    EXPECT_TRUE(isTrue(u"isa(foreign, 'java.lang.String')"));
    expectError(u"isa(x)");
    expectError(u"isa(x, 1)");
}

TEST_F(MemoryEvaluatorTest, WhatMakesNoSenseIsAnError) {
    for (const char16_t* text :
         {u"",     u" ",  u";",    u"()",  u"(x",    u"(x x)", u")",  u"x)", u"x(",     u"x(1",
          u"x(1,", u"x.", u"x..a", u"x y", u"'open", u"x + 1", u"_x", u"1x", u"\u00E4", u"x\u00E4"}) {
        expectError(text);
    }
}

TEST_F(MemoryEvaluatorTest, EvaluationPassesOneGateOfTheHostAndNoMore) {
    world.variable("foreign", world.opaque("thing"));
    valueOf(u"isa(foreign, 'opaque')");
    EXPECT_EQ(world.journal().calls().size(), 1U);
    EXPECT_EQ(world.journal().countOf(Service::inEvalExp), 1U);
}

TEST_F(MemoryEvaluatorTest, ErrorIsSaidToThePersonUnlessErrorsAreDisabled) {
    world.errorMode(qxErrorMode::disabled);
    expectError(u"thrice");
    EXPECT_EQ(complaints(), u"");
    world.errorMode(static_cast<qxErrorMode>(0));
    expectError(u"thrice");
    EXPECT_EQ(complaints(), u"undefined name\n");
}

TEST_F(MemoryEvaluatorTest, HostErrorOfAFunctionIsAStatusAndEverythingElsePasses) {
    world.function("complain", [](const qxArray*) -> qxUniqueArray { throw TextException("MissingNotSupported"); });
    expectError(u"complain");
    world.function("wait", [](const qxArray*) -> qxUniqueArray { throw InterruptException(); });
    EXPECT_THROW(valueOf(u"wait"), InterruptException);
    world.function("crash", [](const qxArray*) -> qxUniqueArray { throw 42; });
    EXPECT_THROW(valueOf(u"crash"), int);
    world.function("overflow", [](const qxArray*) -> qxUniqueArray { throw std::bad_alloc(); });
    EXPECT_THROW(valueOf(u"overflow"), std::bad_alloc);
}

TEST_F(MemoryEvaluatorTest, InvalidTextIsAnErrorOfTheExpression) {
    expectError(std::u16string(1, char16_t{0xD800}));
    expectError(std::u16string(u"x") + char16_t{0xDC00});
    expectError(std::u16string(u"x\0", 2));
}

TEST_F(MemoryEvaluatorTest, BracketsNestOnlySoDeep) {
    world.function("same", [this](const qxArray* argument) { return world.number(*qxGetDoubles(argument)); });
    const auto nested = [](int depth) {
        std::u16string text;
        for (int level = 0; level < depth; ++level) {
            text += u"same(";
        }
        return text + u"5" + std::u16string(static_cast<std::size_t>(depth), u')');
    };
    EXPECT_EQ(numberOf(nested(50)), 5);
    expectError(nested(10'000));
    expectError(u"x" + std::u16string(1'000'000, u'('));
}

TEST_F(MemoryEvaluatorTest, LongTextsAreReadWithoutNesting) {
    std::u16string chain = u"x(2)";
    for (int step = 0; step < 100'000; ++step) {
        chain += u"(1)";
    }
    EXPECT_EQ(numberOf(chain), 8);
    expectError(std::u16string(1'000'000, u'a'));
    expectError(std::u16string(1'000'000, u'.'));
    EXPECT_EQ(valueOf(u"'" + std::u16string(1'000'000, u'a') + u"'") != nullptr, true);
}

TEST_F(MemoryEvaluatorTest, ResultBelongsToTheCallerAndStandsInTheTemporaryScope) {
    qxArray* output = nullptr;
    inEvalExp(u"x(1)", 1, &output, false, inEvaluationSource::introspection);
    EXPECT_EQ(world.valuesAlive(), 2U);
    world.endTemporaryScope();
    EXPECT_EQ(world.valuesAlive(), 1U);
    qxUniqueArray kept = valueOf(u"x(1)");
    qxSetArrayScope(kept.get(), qxArrayScope::none);
    world.endTemporaryScope();
    EXPECT_EQ(*qxGetDoubles(kept.get()), 7);
    kept.reset();
    EXPECT_EQ(world.valuesAlive(), 1U);
}

TEST_F(MemoryEvaluatorTest, VariableIsSharedWithTheWorkspace) {
    const qxUniqueArray value = valueOf(u"x");
    EXPECT_EQ(value.get(), inGetValueFromCurrentWorkspace("x").get());
    EXPECT_EQ(world.valuesAlive(), 1U);
}

TEST_F(MemoryEvaluatorTest, EvaluationForNoResultWritesNone) {
    EXPECT_EQ(inEvalExp(u"x", 0, nullptr, false, inEvaluationSource::introspection), inExecutionStatus::success);
    EXPECT_EQ(world.evaluations().back().outputCount, 0);
}

TEST_F(MemoryEvaluatorTest, CallThatTrapsErrorsAnswersAStatusAndPassesTheRest) {
    const auto call = [this](const char* function, bool trap) {
        const qxUniqueArray input = world.number(1);
        const qxArray* inputs[] = {input.get()};
        qxArray* output = nullptr;
        const int status = inCallFcnWithTrap(1, &output, 1, inputs, function, trap);
        const qxUniqueArray owned(output);
        return status;
    };
    world.function("complain", [](const qxArray*) -> qxUniqueArray { throw TextException("MissingNotSupported"); });
    EXPECT_NE(call("complain", true), 0);
    EXPECT_NE(call("undefined", true), 0);
    EXPECT_THROW(call("complain", false), TextException);
    world.function("wait", [](const qxArray*) -> qxUniqueArray { throw InterruptException(); });
    EXPECT_THROW(call("wait", true), InterruptException);
    world.function("make", [this](const qxArray*) { return world.number(1); });
    EXPECT_EQ(call("make", true), 0);
    world.functionFails("make");
    EXPECT_NE(call("make", true), 0);
}

TEST_F(MemoryEvaluatorTest, ObserverSeesTheWorldInTheMidstOfACall) {
    std::size_t seen = 0;
    world.whenCalled(Service::inEvalExp, [&] { ++seen; });
    valueOf(u"x");
    EXPECT_EQ(seen, 1U);
    world.faults().failService(Service::inEvalExp, Fault::thrownInt);
    EXPECT_THROW(valueOf(u"x"), int);
    EXPECT_EQ(seen, 2U);
    world.whenCalled(Service::inEvalExp, [&] { world.variable("y", world.number(5)); });
    world.faults().clear();
    EXPECT_EQ(numberOf(u"y"), 5);
}

}  // namespace
