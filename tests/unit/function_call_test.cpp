// Asking an object through a function of the interpreter.
#include "contextdata/introspection.h"
#include "tests/support/world_test.h"

namespace {

using memory_host::Fault;
using memory_host::Service;
using ZELKIntrospection::callFunctionOnObject;

class FunctionCallTest : public WorldTest {
protected:
    const Names before = {u"kept"};
    Names names = before;
};

TEST_F(FunctionCallTest, AppendsTheTextsThatTheFunctionReturns) {
    const qxUniqueArray value = world.opaque("thing");
    world.function("methods", [this](const qxArray*) { return world.cell({u"walk", u"talk"}); });
    EXPECT_TRUE(callFunctionOnObject(value.get(), "methods", names));
    EXPECT_THAT(names, testing::ElementsAre(u"kept", u"walk", u"talk"));
}

TEST_F(FunctionCallTest, TheValueIsTheOnlyArgument) {
    const qxUniqueArray value = world.opaque("thing");
    const qxArray* seen = nullptr;
    world.function("methods", [&](const qxArray* argument) {
        seen = argument;
        return world.cell({});
    });
    EXPECT_TRUE(callFunctionOnObject(value.get(), "methods", names));
    EXPECT_EQ(seen, value.get());
}

TEST_F(FunctionCallTest, ReturnedValueIsReleasedOnEveryPath) {
    const qxUniqueArray value = world.opaque("thing");
    world.function("methods", [this](const qxArray*) { return world.cell({u"walk"}); });
    const std::size_t alive = world.valuesAlive();
    EXPECT_TRUE(callFunctionOnObject(value.get(), "methods", names));
    EXPECT_EQ(world.valuesAlive(), alive);
    world.faults().failService(Service::getScalarText, Fault::interrupt);
    EXPECT_FALSE(callFunctionOnObject(value.get(), "methods", names));
    EXPECT_EQ(world.valuesAlive(), alive);
}

TEST_F(FunctionCallTest, FailingFunctionAnswersFalseAndTouchesNoName) {
    const qxUniqueArray value = world.opaque("thing");
    EXPECT_FALSE(callFunctionOnObject(value.get(), "methods", names));  // no such function
    EXPECT_EQ(names, before);
}

TEST_F(FunctionCallTest, EveryExceptionIsSwallowedTheInterruptIncluded) {
    const qxUniqueArray value = world.opaque("thing");
    world.function("methods", [this](const qxArray*) { return world.cell({u"walk", u"talk"}); });
    for (const Fault fault :
         {Fault::interrupt, Fault::hostException, Fault::standardException, Fault::thrownInt, Fault::badAlloc}) {
        world.faults().failService(Service::inCallFcn, fault);
        EXPECT_FALSE(callFunctionOnObject(value.get(), "methods", names)) << fault;
        EXPECT_EQ(names, before);
    }
}

TEST_F(FunctionCallTest, ConversionThatThrowsHalfWayTouchesNoName) {
    const qxUniqueArray value = world.opaque("thing");
    world.function("methods", [this](const qxArray*) { return world.cell({u"walk", u"talk"}); });
    world.faults().failService(Service::getScalarText, 2, Fault::standardException);
    EXPECT_FALSE(callFunctionOnObject(value.get(), "methods", names));
    EXPECT_EQ(names, before);
}

TEST_F(FunctionCallTest, AnswerThatIsNoCellOfTextsIsNoAnswer) {
    const qxUniqueArray value = world.opaque("thing");
    world.function("number", [this](const qxArray*) { return world.number(1); });
    world.function("nothing", [](const qxArray*) { return qxUniqueArray(); });
    EXPECT_FALSE(callFunctionOnObject(value.get(), "number", names));
    EXPECT_FALSE(callFunctionOnObject(value.get(), "nothing", names));
    EXPECT_EQ(names, before);
}

TEST_F(FunctionCallTest, NullValueIsNeverHandedToTheInterpreter) {
    EXPECT_FALSE(callFunctionOnObject(nullptr, "methods", names));
    EXPECT_TRUE(world.journal().calls().empty());
}

}  // namespace
