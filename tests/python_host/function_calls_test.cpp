#include "contextdata/other_object_systems.h"
#include "contextdata/workspace.h"
#include "host/error_mode.h"
#include "host/evaluation.h"
#include "host/exceptions.h"
#include "host/interpreter.h"
#include "host/text.h"
#include "tests/python_host/session.h"

namespace {

using namespace session;
using foundation::core::except::IException;
using foundation::core::except::InterruptException;

class FunctionCalls : public PythonTest {
protected:
    static qxUniqueArray feval(const std::u16string& function, const qxArray* input) {
        const qxUniqueArray name = qxCreateString(function);
        const qxArray* inputs[] = {name.get(), input};
        qxArray* output = nullptr;
        inFullFevalFcn(1, &output, input == nullptr ? 1 : 2, inputs);
        return qxUniqueArray(output);
    }
};

TEST_F(FunctionCalls, ByATextReachTheNamedFunction) {
    run("class A: pass\na = A()\na.x = 1");
    const qxUniqueArray names = feval(u"properties", value("a").get());
    ASSERT_EQ(qxGetNumberOfElements(names.get()), 1U);
    EXPECT_EQ(getScalarText(qxGetCell(names.get(), 0)), u"x");
}

TEST_F(FunctionCalls, OfUnknownFunctionsFail) {
    EXPECT_THROW(feval(u"missing", value("1").get()), IException);
    EXPECT_THROW(feval(u"methods", nullptr), IException);
    const qxUniqueArray number = value("1");
    const qxArray* inputs[] = {number.get()};
    qxArray* output = nullptr;
    EXPECT_THROW(inFullFevalFcn(1, &output, 1, inputs), IException);
    EXPECT_THROW(inFullFevalFcn(1, &output, 0, nullptr), IException);
    EXPECT_EQ(output, nullptr);
}

TEST_F(FunctionCalls, WithATrapAnswerInsteadOfThrowing) {
    const qxUniqueArray name = qxCreateString(u"package");
    const qxArray* inputs[] = {name.get()};
    qxArray* output = nullptr;
    constexpr bool trap = true;
    EXPECT_NE(inCallFcnWithTrap(1, &output, 1, inputs, "findpackage", trap), 0);
    EXPECT_EQ(output, nullptr);
    EXPECT_THROW(inCallFcnWithTrap(1, &output, 1, inputs, "findpackage", !trap), IException);
    EXPECT_EQ(inCallFcnWithTrap(1, &output, 1, inputs, "methods", trap), 0);
    const qxUniqueArray held(output);
    EXPECT_TRUE(held);
}

TEST_F(FunctionCalls, WithATrapPassTheInterruptOn) {
    run("class A:\n def __dir__(self): raise KeyboardInterrupt\na = A()");
    const qxUniqueArray held = value("a");
    const qxArray* inputs[] = {held.get()};
    qxArray* output = nullptr;
    constexpr bool trap = true;
    EXPECT_THROW(inCallFcnWithTrap(1, &output, 1, inputs, "properties", trap), InterruptException);
    EXPECT_EQ(output, nullptr);
}

TEST_F(FunctionCalls, FindNoPackageOfAnOlderObjectSystem) {
    EXPECT_FALSE(IsXOBPackage(u"collections"));
    EXPECT_FALSE(IsXOBPackage(u"it's"));
}

TEST_F(FunctionCalls, GiveEveryNamespaceByItsName) {
    const qxUniqueArray spaces = feval(u"ostrel.metadata.Namespace.getAllNamespaces", nullptr);
    Names names;
    for (std::size_t index = 0; index < qxGetNumberOfElements(spaces.get()); ++index) {
        const qxUniqueArray name = qxGetProperty(spaces.get(), index, "Name");
        const std::u16string text = getScalarText(name.get());
        names.emplace_back(text.begin(), text.end());
    }
    EXPECT_THAT(names, ::testing::Contains("builtins"));
    EXPECT_THAT(names, ::testing::Contains("sys"));
}

TEST(ErrorMode, IsWhatWasSetAndRestoredByTheGuard) {
    const qxErrorMode before = getErrorMode();
    setErrorMode(static_cast<qxErrorMode>(5));
    {
        const DisableErrorMode silence;
        EXPECT_EQ(getErrorMode(), qxErrorMode::disabled);
    }
    EXPECT_EQ(getErrorMode(), static_cast<qxErrorMode>(5));
    setErrorMode(before);
}

}  // namespace
