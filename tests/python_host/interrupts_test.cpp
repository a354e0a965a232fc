#include "contextdata/class_member_names.h"
#include "contextdata/introspection.h"
#include "contextdata/resolved_class_id.h"
#include "host/exceptions.h"
#include "host/i18n.h"
#include "host/interpreter.h"
#include "tests/python_host/session.h"

namespace {

using namespace session;
using foundation::core::except::IException;
using foundation::core::except::InterruptException;

class Interrupts : public PythonTest {
protected:
    static void listMethods(const std::string& name) {
        std::vector<std::u16string> names;
        bool flag = false;
        const auto cls = ZELKContextData::ResolvedClassID::fromKnownResolvedClassID(name);
        ZELKContextData::getClassMethodNames(cls, names, flag);
    }
};

TEST_F(Interrupts, ReachTheCallerOfAWalk) {
    run("class A:\n def f(self): pass");
    PyErr_SetInterrupt();
    EXPECT_THROW(listMethods("__main__.A"), InterruptException);
    EXPECT_EQ(PyErr_Occurred(), nullptr);
    EXPECT_NO_THROW(listMethods("__main__.A"));
}

TEST_F(Interrupts, ReachTheCallerOfAFunction) {
    const qxUniqueArray held = value("1");
    PyErr_SetInterrupt();
    const qxArray* inputs[] = {held.get()};
    qxArray* output = nullptr;
    EXPECT_THROW(inCallFcn(1, &output, 1, inputs, "methods"), InterruptException);
    EXPECT_EQ(output, nullptr);
}

TEST_F(Interrupts, AreNotWhatAnotherErrorOfAHandlerIs) {
    run("import signal\ndef handler(number, frame): raise ValueError\nold = signal.signal(signal.SIGUSR1, handler)\n"
        "class A: pass");
    PyErr_SetInterruptEx(10);
    try {
        listMethods("__main__.A");
        ADD_FAILURE() << "the handler's error is lost";
    } catch (const InterruptException&) {
        ADD_FAILURE() << "the handler's error is no interrupt";
    } catch (const IException& failure) {
        EXPECT_EQ(failure.getMessage(), "ValueError");
    }
    EXPECT_EQ(PyErr_Occurred(), nullptr);
    run("signal.signal(signal.SIGUSR1, old)");
}

TEST_F(Interrupts, OnlyKeyboardInterruptIsOne) {
    run("class A:\n x = 1\n def __init__(self, error): self.__dict__['_error'] = error\n"
        " def __dir__(self): raise self._error");
    for (const char* other : {"SystemExit", "MemoryError", "GeneratorExit", "ValueError", "RecursionError"}) {
        EXPECT_THAT(call("properties", "A(" + std::string(other) + ")"), ::testing::ElementsAre("x")) << other;
        EXPECT_EQ(PyErr_Occurred(), nullptr);
    }
    run("class MyInterrupt(KeyboardInterrupt): pass");
    EXPECT_THROW(call("properties", "A(KeyboardInterrupt)"), InterruptException);
    EXPECT_THROW(call("properties", "A(MyInterrupt)"), InterruptException);
}

TEST_F(Interrupts, TravelThroughTheHostsTransport) {
    run("class A:\n def __dir__(self): raise KeyboardInterrupt");
    const boost::exception_detail::clone_base* copy = nullptr;
    try {
        call("properties", "A()");
    } catch (const IException& failure) {
        copy = failure.clone();
    }
    ASSERT_NE(copy, nullptr);
    EXPECT_THROW(copy->rethrow(), InterruptException);
    delete copy;
}

}  // namespace
