#include "host/interpreter.h"

#include <map>

#include "host/text.h"
#include "tests/conformance/suite/suite.h"

namespace {

using foundation::core::except::IException;
using foundation::core::except::InterruptException;

class Interpreter : public conformance::Conformance {
protected:
    static qxUniqueArray called(const char* function, const qxUniqueArray& argument) {
        const qxArray* inputs[] = {argument.get()};
        qxArray* output = nullptr;
        inCallFcn(1, &output, 1, inputs, function);
        return qxUniqueArray(output);
    }
    static std::vector<std::u16string> textsIn(const qxUniqueArray& cell) {
        std::vector<std::u16string> texts;
        for (std::size_t index = 0; index < qxGetNumberOfElements(cell.get()); ++index) {
            texts.push_back(getScalarText(qxGetCell(cell.get(), index)));
        }
        return texts;
    }
};

TEST_F(Interpreter, NamesThePropertiesOfAnObject) {
    const auto subject = provider().objectWithProperty();
    CONFORMANCE_NEEDS(subject, "objects with properties that can be read");
    const qxUniqueArray names = called("properties", subject->object);
    ASSERT_TRUE(names);
    EXPECT_EQ(qxGetClassID(names.get()), qxClassID::cell);
    EXPECT_THAT(textsIn(names),
                ::testing::Contains(std::u16string(subject->property.begin(), subject->property.end())));
}

TEST_F(Interpreter, NamesTheMethodsOfAnObject) {
    const std::string name = provider().makeClass({"Worker", {}, {{"work"}}, {}});
    CONFORMANCE_NEEDS(!name.empty(), "classes");
    const qxUniqueArray object = provider().object(name);
    CONFORMANCE_NEEDS(object, "objects of classes");
    EXPECT_THAT(textsIn(called("methods", object)), ::testing::Contains(u"work"));
}

TEST_F(Interpreter, FailsAtAnUnknownFunction) {
    const qxUniqueArray argument = qxCreateString(u"argument");
    const qxArray* inputs[] = {argument.get()};
    qxArray* output = nullptr;
    EXPECT_THROW(inCallFcn(1, &output, 1, inputs, "no_such_function"), IException);
    EXPECT_EQ(output, nullptr) << "nothing has been written";
}

TEST_F(Interpreter, ThrowsTheInterrupt) {
    const auto subject = provider().interruptedFunction();
    CONFORMANCE_NEEDS(subject, "functions that the interrupt ends");
    EXPECT_THROW(called(subject->function.c_str(), subject->argument), InterruptException);
}

TEST_F(Interpreter, CallsAMethod) {
    const auto subject = provider().callableMethod();
    CONFORMANCE_NEEDS(subject, "methods that can be called");
    const qxUniqueArray result(inCallMethodSingleInputSingleOutput(subject->object.get(), subject->method.c_str()));
    ASSERT_TRUE(result);
    EXPECT_EQ(*qxGetDoubles(result.get()), 2.5);
}

TEST_F(Interpreter, FailsAtAnUnknownMethod) {
    const qxUniqueArray value = qxCreateString(u"value");
    EXPECT_THROW(inCallMethodSingleInputSingleOutput(value.get(), "no_such_method"), IException);
}

TEST_F(Interpreter, HasOneBridge) {
    EXPECT_EQ(IInterpreter::GetInterpreterBridge(), IInterpreter::GetInterpreterBridge());
}

TEST_F(Interpreter, IsNotStoppedWhenNobodyStopsIt) {
    if (IInterpreterBridge* bridge = IInterpreter::GetInterpreterBridge()) {
        EXPECT_FALSE(bridge->isDebuggerStopped());
    }
}

TEST_F(Interpreter, TellsWhereTheDebuggerIs) {
    const std::u16string file = provider().stopDebugger();
    CONFORMANCE_NEEDS(!file.empty(), "a debugger");
    IInterpreterBridge* bridge = IInterpreter::GetInterpreterBridge();
    ASSERT_NE(bridge, nullptr);
    ASSERT_TRUE(bridge->isDebuggerStopped());
    std::int32_t position1 = 0;
    std::int32_t position2 = 0;
    EXPECT_EQ(bridge->getDebuggerFocus(position1, position2), file);
}

}  // namespace
