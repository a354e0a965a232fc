#include "contextdata/workspace.h"
#include "host/dispatcher.h"
#include "host/i18n.h"
#include "tests/python_host/session.h"

namespace {

using namespace session;

class ClassPrecedence : public PythonTest {
protected:
    /// Asks both ways, since the answer must turn with the question.
    static int precedence(const std::string& first, const std::string& second) {
        const auto ask = [](const std::string& one, const std::string& other) {
            return GetClassPrecedence(fl::i18n::to_ustring(one), fl::i18n::to_ustring(other));
        };
        EXPECT_EQ(ask(first, second), -ask(second, first));
        return ask(first, second);
    }
    static int ofMain(const std::string& first, const std::string& second) {
        return precedence("__main__." + first, "__main__." + second);
    }
};

TEST_F(ClassPrecedence, ASubclassComesBeforeItsAncestors) {
    run("class A: pass\nclass B(A): pass\nclass C(B): pass\nclass D: pass");
    EXPECT_EQ(ofMain("B", "A"), -1);
    EXPECT_EQ(ofMain("C", "A"), -1);
    EXPECT_EQ(ofMain("A", "D"), 0);
    EXPECT_EQ(precedence("builtins.bool", "builtins.int"), -1);
}

TEST_F(ClassPrecedence, AClassDoesNotComeBeforeItself) {
    run("class A: __array_priority__ = 5");
    EXPECT_EQ(ofMain("A", "A"), 0);
}

TEST_F(ClassPrecedence, AmongUnrelatedClassesTheHigherPriorityComesFirst) {
    run("class Low: __array_priority__ = 1\nclass High: __array_priority__ = 2.5\nclass Heir(High): pass\n"
        "class Same: __array_priority__ = 1.0\nclass None_: pass\n"
        "class Huge: __array_priority__ = 10**400\nclass Tiny: __array_priority__ = -10**400");
    EXPECT_EQ(ofMain("High", "Low"), -1);
    EXPECT_EQ(ofMain("Heir", "Low"), -1);
    EXPECT_EQ(ofMain("Same", "Low"), 0);
    EXPECT_EQ(ofMain("High", "None_"), 0);
    EXPECT_EQ(ofMain("Huge", "High"), -1);
    EXPECT_EQ(ofMain("Tiny", "Low"), 1);
}

TEST_F(ClassPrecedence, DerivationCountsForMoreThanPriority) {
    run("class A: __array_priority__ = 9\nclass B(A): __array_priority__ = 1");
    EXPECT_EQ(ofMain("B", "A"), -1);
}

TEST_F(ClassPrecedence, ArraysHaveThePriorityOfTheirPackage) {
    run("import numpy, pandas\nclass Above: __array_priority__ = 1\nclass Below: __array_priority__ = -1\n"
        "class Mine(numpy.ndarray): __array_priority__ = -5");
    EXPECT_EQ(precedence("__main__.Above", "numpy.ndarray"), -1);
    EXPECT_EQ(precedence("numpy.ndarray", "__main__.Below"), -1);
    EXPECT_EQ(precedence("pandas.DataFrame", "numpy.ndarray"), -1);
    EXPECT_EQ(precedence("numpy.matrix", "__main__.Above"), -1);
    EXPECT_EQ(precedence("__main__.Mine", "numpy.ndarray"), -1);
    EXPECT_EQ(precedence("__main__.Below", "numpy.float64"), -1);
}

TEST_F(ClassPrecedence, APriorityThatIsNoPlainNumberIsNone) {
    run("class Trap(float):\n"
        " def __gt__(self, other): trace.append('gt'); return True\n"
        " def __float__(self): trace.append('float'); return 9.0\n"
        "class Index:\n def __index__(self): trace.append('index'); return 9\n"
        "class A: __array_priority__ = Trap(9)\nclass B: __array_priority__ = Index()\n"
        "class C:\n @property\n def __array_priority__(self): trace.append('property'); return 9\n"
        "class Meta(type):\n @property\n def __array_priority__(cls): trace.append('meta'); return 9\n"
        "class D(metaclass=Meta): pass\nclass E: __array_priority__ = '9'\n"
        "class F: __array_priority__ = float('nan')\nclass Low: __array_priority__ = 0");
    for (const char* name : {"A", "B", "C", "D", "E", "F"}) {
        EXPECT_EQ(ofMain(name, "Low"), 0) << name;
    }
}

TEST_F(ClassPrecedence, UnknownClassesAndBuiltInKindsHaveNone) {
    run("class A: pass");
    EXPECT_EQ(precedence("no.such", "__main__.A"), 0);
    EXPECT_EQ(precedence("", ""), 0);
    EXPECT_EQ(precedence("double", "single"), 0);
    EXPECT_EQ(precedence("double", "__main__.A"), 0);
    ObjectSystem& objects = Dispatcher::getDispatcher().getObjectSystem();
    EXPECT_FALSE(objects.hasPrecedenceOver(INT32_MAX, INT32_MIN));
    EXPECT_FALSE(objects.hasPrecedenceOver(-1, 0));
}

TEST_F(ClassPrecedence, AClassThatDiedHasNone) {
    run("class A: pass\nclass B(A): pass");
    ObjectSystem& objects = Dispatcher::getDispatcher().getObjectSystem();
    const std::int32_t a = objects.getClassNumber("__main__.A");
    const std::int32_t b = objects.getClassNumber("__main__.B");
    ASSERT_TRUE(objects.hasPrecedenceOver(b, a));
    run("del B\nimport gc\ngc.collect()");
    EXPECT_FALSE(objects.hasPrecedenceOver(b, a));
}

}  // namespace
