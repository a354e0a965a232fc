// Classes by number.
#include "host/dispatcher.h"
#include "tests/python_host/session.h"

namespace {

using namespace session;

class ObjectSystems : public PythonTest {
protected:
    static ObjectSystem& objects() { return Dispatcher::getDispatcher().getObjectSystem(); }
    static std::int32_t number(const std::string& className) { return objects().getClassNumber(className); }
    static bool derives(const std::string& cls, const std::string& base) {
        return objects().isDerivedFrom(number(cls), number(base));
    }
    static std::int32_t fullID(const std::string& expression) { return qxGetFullClassID(value(expression).get()); }
};

TEST_F(ObjectSystems, AClassHasTheNumberThatItsValuesCarry) {
    run("class A: pass\na = A()");
    EXPECT_EQ(number("__main__.A"), fullID("a"));
    EXPECT_EQ(number("__main__.A"), static_cast<std::int32_t>(qxGetClassID(value("a").get())));
    EXPECT_GT(number("__main__.A"), 18);
}

TEST_F(ObjectSystems, AnAliasHasTheNumberOfTheClass) {
    run("import pandas\nclass A: pass\nAlias = A");
    EXPECT_EQ(number("pandas.DataFrame"), number("pandas.core.frame.DataFrame"));
    EXPECT_EQ(number("pandas.DataFrame"), fullID("pandas.DataFrame()"));
    EXPECT_EQ(number("__main__.Alias"), number("__main__.A"));
}

TEST_F(ObjectSystems, BuiltInKindsHaveFixedNumbers) {
    EXPECT_EQ(number("cell"), 1);
    EXPECT_EQ(number("struct"), 2);
    EXPECT_EQ(number("logical"), 3);
    EXPECT_EQ(number("char"), 4);
    EXPECT_EQ(number("double"), 6);
    EXPECT_EQ(number("uint64"), 15);
    EXPECT_EQ(number("function_handle"), 16);
    EXPECT_EQ(fullID("1.5"), number("double"));
    EXPECT_EQ(fullID("[1]"), number("cell"));
    EXPECT_EQ(fullID("len"), number("function_handle"));
}

TEST_F(ObjectSystems, AnUnknownNameHasNoNumber) {
    EXPECT_EQ(number(""), 0);
    EXPECT_EQ(number("no.such.Class"), 0);
    EXPECT_EQ(number("__main__"), 0);
    EXPECT_EQ(number("opaque"), 0);
    EXPECT_FALSE(objects().isDerivedFrom(0, 0));
}

TEST_F(ObjectSystems, AClassDerivesFromItselfAndItsAncestors) {
    run("class Root: pass\nclass Left(Root): pass\nclass Right(Root): pass\nclass Leaf(Left, Right): pass");
    EXPECT_TRUE(derives("__main__.Leaf", "__main__.Leaf"));
    EXPECT_TRUE(derives("__main__.Leaf", "__main__.Root"));
    EXPECT_TRUE(derives("__main__.Leaf", "__main__.Right"));
    EXPECT_FALSE(derives("__main__.Root", "__main__.Leaf"));
    EXPECT_FALSE(derives("__main__.Left", "__main__.Right"));
    EXPECT_TRUE(derives("builtins.bool", "builtins.int"));
}

TEST_F(ObjectSystems, KindsAreRelatedToThemselvesOnly) {
    EXPECT_TRUE(derives("double", "double"));
    EXPECT_FALSE(derives("double", "single"));
    EXPECT_FALSE(derives("double", "builtins.object"));
    EXPECT_FALSE(derives("builtins.float", "double"));
    EXPECT_FALSE(objects().isDerivedFrom(5, 5));
    EXPECT_FALSE(objects().isDerivedFrom(17, 17));
    EXPECT_FALSE(objects().isDerivedFrom(18, 18));
    EXPECT_FALSE(objects().isDerivedFrom(-1, -1));
    EXPECT_FALSE(objects().isDerivedFrom(INT32_MAX, INT32_MAX));
    EXPECT_FALSE(objects().isDerivedFrom(INT32_MIN, INT32_MIN));
}

TEST_F(ObjectSystems, AnOpaqueValueHasTheNumberOfItsVeryClass) {
    EXPECT_EQ(qxGetClassID(value("None").get()), qxClassID::opaque);
    EXPECT_GT(fullID("None"), 18);
    EXPECT_NE(fullID("None"), fullID("(x for x in [])"));
    EXPECT_TRUE(objects().isDerivedFrom(fullID("None"), number("builtins.object")));
}

TEST_F(ObjectSystems, AValueHasTheNumberOfTheClassThatItHasNow) {
    run("class A: pass\nclass B: pass\na = A()");
    const qxUniqueArray held = value("a");
    EXPECT_EQ(qxGetFullClassID(held.get()), number("__main__.A"));
    run("a.__class__ = B");
    EXPECT_EQ(qxGetFullClassID(held.get()), number("__main__.B"));
}

TEST_F(ObjectSystems, ANumberWhoseClassDiedDerivesFromNothing) {
    run("class A: pass");
    const std::int32_t dead = number("__main__.A");
    ASSERT_TRUE(objects().isDerivedFrom(dead, dead));
    run("del A\nimport gc\ngc.collect()");
    EXPECT_FALSE(objects().isDerivedFrom(dead, dead));
    EXPECT_FALSE(objects().isDerivedFrom(dead, number("builtins.object")));
    EXPECT_FALSE(objects().isDerivedFrom(number("builtins.int"), dead));
    EXPECT_EQ(number("__main__.A"), 0);
}

TEST_F(ObjectSystems, NumbersOfLivingClassesStayTheirOwnWhileOthersComeAndGo) {
    run("class Kept: pass\nkept = Kept()");
    const std::int32_t kept = number("__main__.Kept");
    for (int round = 0; round < 1000; ++round) {
        run("class Passing: pass\npassing = Passing()");
        ASSERT_EQ(fullID("passing"), number("__main__.Passing"));
        ASSERT_NE(fullID("passing"), kept);
        ASSERT_TRUE(derives("__main__.Passing", "builtins.object"));
        ASSERT_FALSE(derives("__main__.Passing", "__main__.Kept"));
    }
    EXPECT_EQ(number("__main__.Kept"), kept);
    EXPECT_TRUE(objects().isDerivedFrom(kept, kept));
}

TEST_F(ObjectSystems, AMetaclassIsNotAsked) {
    run("class Meta(type):\n"
        " def __instancecheck__(cls, other): trace.append('instance'); return True\n"
        " def __subclasscheck__(cls, other): trace.append('subclass'); return True\n"
        " def __eq__(cls, other): trace.append('eq'); return True\n"
        " def __hash__(cls): trace.append('hash'); return 0\n"
        "class A(metaclass=Meta): pass\nclass B: pass\ntrace.clear()");
    EXPECT_FALSE(derives("__main__.B", "__main__.A"));
    EXPECT_TRUE(derives("__main__.A", "builtins.object"));
}

}  // namespace
