#include "hosts/python/python_host.h"
#include "tests/python_host/session.h"

namespace {

using namespace session;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class LiveChanges : public PythonTest {
protected:
    static std::optional<python_host::StructureStamp> stamp(const std::string& expression) {
        const Ref type = eval(expression);
        return python_host::stampOf(python_host::asType(type.get()));
    }

    /// Whether the statements change the stamp of `A`.
    static bool changes(const std::string& statements) {
        const auto before = stamp("A");
        EXPECT_TRUE(before);
        EXPECT_EQ(before, stamp("A"));
        run(statements);
        return stamp("A") != before;
    }
};

TEST_F(LiveChanges, AreSeenByTheNextCall) {
    run("class Base: pass\nclass Other:\n def o(self): pass\nclass A(Base):\n def f(self): pass");
    EXPECT_THAT(methods("__main__.A"), ElementsAre("f"));
    run("A.g = lambda self: 0");
    EXPECT_THAT(methods("__main__.A"), ElementsAre("f", "g"));
    run("Base.h = lambda self: 0");
    EXPECT_THAT(methods("__main__.A"), ElementsAre("f", "g", "h"));
    run("del A.f");
    EXPECT_THAT(methods("__main__.A"), ElementsAre("g", "h"));
    run("A.__bases__ = (Other,)");
    EXPECT_THAT(methods("__main__.A"), ElementsAre("g", "o"));
    run("A.g = 1");
    EXPECT_THAT(methods("__main__.A"), ElementsAre("o"));
    EXPECT_THAT(properties("__main__.A"), ElementsAre("g"));
}

TEST_F(LiveChanges, OfAnnotationsInPlaceAreSeen) {
    run("class Base:\n x: int\nclass A(Base): pass");
    EXPECT_THAT(properties("__main__.A"), ElementsAre("x"));
    run("Base.__annotations__['y'] = int");
    EXPECT_THAT(properties("__main__.A"), ElementsAre("x", "y"));
    run("Base.__annotations__['x'] = 'Final'");
    EXPECT_THAT(constants("__main__.A"), ElementsAre("x"));
    run("Base.__annotations__.clear()");
    EXPECT_THAT(properties("__main__.A"), IsEmpty());
}

TEST_F(LiveChanges, OfFieldsAndEnumerationsInPlaceAreSeen) {
    run("import enum\nfrom dataclasses import dataclass, field\n"
        "@dataclass\nclass D:\n x: list = field(default_factory=list)\n"
        "class E(enum.Enum):\n A = 1");
    EXPECT_THAT(properties("__main__.D"), ElementsAre("x"));
    EXPECT_THAT(enumerationMembers("__main__.E"), ElementsAre("A"));
    run("D.__dataclass_fields__['y'] = None\nE._member_map_['B'] = E.A");
    EXPECT_THAT(properties("__main__.D"), ElementsAre("x", "y"));
    EXPECT_THAT(enumerationMembers("__main__.E"), ElementsAre("A", "B"));
}

TEST_F(LiveChanges, BehindTheInterpretersBackAreSeen) {
    run("import gc\nclass A:\n x: int\n[d] = [d for d in gc.get_referents(A.__dict__) if type(d) is dict]");
    EXPECT_THAT(properties("__main__.A"), ElementsAre("x"));
    run("d['y'] = 1");
    EXPECT_THAT(properties("__main__.A"), ElementsAre("y", "x"));
    run("d['__annotations__'] = {'z': int}\ngc.collect()");
    EXPECT_THAT(properties("__main__.A"), ElementsAre("y", "z"));
}

TEST_F(LiveChanges, ChangeTheStamp) {
    run("class Base:\n x: int\nclass A(Base): pass");
    EXPECT_FALSE(changes("pass"));
    EXPECT_TRUE(changes("A.f = 1"));
    EXPECT_TRUE(changes("Base.g = 1"));
    EXPECT_TRUE(changes("Base.__annotations__['y'] = int"));
    EXPECT_FALSE(changes("a = A(); a.z = 1"));
}

TEST_F(LiveChanges, ANewClassInThePlaceOfADeadOneHasAnotherStamp) {
    run("import gc\n"
        "def make(i): return type('A', (), {f'm{i}': 1, '__module__': '__main__'})");
    std::optional<python_host::StructureStamp> last;
    for (int round = 0; round < 200; ++round) {
        run("A = make(" + std::to_string(round) + ")\ngc.collect()");
        const auto current = stamp("A");
        ASSERT_TRUE(current);
        ASSERT_NE(current, last);
        ASSERT_THAT(properties("__main__.A"), ElementsAre(std::string("m").append(std::to_string(round))));
        last = current;
    }
}

TEST_F(LiveChanges, ByCompiledClassesAreNotExpected) {
    const auto first = stamp("int");
    ASSERT_TRUE(first);
    EXPECT_EQ(first, stamp("int"));
}

}  // namespace
