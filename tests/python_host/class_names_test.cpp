#include "contextdata/introspection.h"
#include "contextdata/resolved_class_id.h"
#include "host/name_resolution.h"
#include "hosts/python/python_host.h"
#include "tests/python_host/session.h"

namespace {

using namespace session;
using ::testing::StartsWith;

using ClassNames = PythonTest;

TEST_F(ClassNames, AreModuleAndQualifiedName) {
    run("class Outer:\n class Inner: pass");
    EXPECT_EQ(nameOfClass("Outer"), "__main__.Outer");
    EXPECT_EQ(nameOfClass("Outer.Inner"), "__main__.Outer.Inner");
    EXPECT_EQ(nameOfClass("int"), "builtins.int");
    EXPECT_EQ(nameOfClass("__import__('collections').OrderedDict"), "collections.OrderedDict");
}

TEST_F(ClassNames, LeadBackToTheClass) {
    run("class Outer:\n class Inner: pass");
    for (const char* name : {"__main__.Outer", "__main__.Outer.Inner", "builtins.int"}) {
        zelk::COSClass* cls = classOf(name);
        ASSERT_NE(cls, nullptr) << name;
        EXPECT_NE(cls->getDefinition(false), nullptr) << name;
        EXPECT_STREQ(cls->getName(), name);
    }
}

TEST_F(ClassNames, OfUnknownClassesAreNoClass) {
    run("variable = 1");
    for (const char* name : {"__main__.Missing", "__main__.variable", "__main__", "no.such.Module", ".int", "int.",
                             "__main__..int", "#1/__main__.Missing", "."}) {
        EXPECT_EQ(classOf(name), nullptr) << name;
    }
    EXPECT_EQ(zelk::COSClass::getClass({}), nullptr);
}

TEST_F(ClassNames, BuiltInClassesHaveAShortForm) {
    ASSERT_NE(classOf("int"), nullptr);
    EXPECT_STREQ(classOf("int")->getName(), "builtins.int");
}

TEST_F(ClassNames, AnAliasGivesTheCanonicalName) {
    run("import pandas");
    ASSERT_NE(classOf("pandas.DataFrame"), nullptr);
    EXPECT_STREQ(classOf("pandas.DataFrame")->getName(), "pandas.core.frame.DataFrame");
    EXPECT_EQ(classOf("pandas.DataFrame"), classOf("pandas.core.frame.DataFrame"));
}

TEST_F(ClassNames, CompiledTypesThatNoModuleShowsKeepTheirPlainName) {
    run("f = lambda: 0");
    EXPECT_EQ(nameOfClass("type(f)"), "builtins.function");
    ASSERT_NE(classOf("builtins.function"), nullptr);
    EXPECT_EQ(nameOfClass("type(None)"), "builtins.NoneType");
}

TEST_F(ClassNames, LocalClassesOfOneNameAreToldApart) {
    run("def f():\n class C: pass\n return C\na, b = f(), f()");
    const std::string first = nameOfClass("a");
    const std::string second = nameOfClass("b");
    EXPECT_NE(first, second);
    EXPECT_EQ(zelk::nameresolution::getBaseClassNameFromFullName(first), "__main__.f.<locals>.C");
    EXPECT_EQ(zelk::nameresolution::getBaseClassNameFromFullName(second), "__main__.f.<locals>.C");
    EXPECT_TRUE(zelk::nameresolution::isSoftwarePackageQualifiedName(first));
    EXPECT_STREQ(classOf(first)->getName(), first.c_str());
    EXPECT_STREQ(classOf(second)->getName(), second.c_str());
    EXPECT_NE(classOf(first), classOf(second));
}

TEST_F(ClassNames, AReplacedClassGivesItsNameToTheNewOne) {
    run("class C:\n def old(self): pass\nobject_of_old = C()");
    EXPECT_EQ(nameOfClass("C"), "__main__.C");
    run("class C:\n def new(self): pass");
    EXPECT_EQ(nameOfClass("C"), "__main__.C");
    EXPECT_EQ(nameOfClass("type(object_of_old)"), "#1/__main__.C");
    EXPECT_THAT(methods("__main__.C"), ::testing::ElementsAre("new"));
    EXPECT_THAT(methods("#1/__main__.C"), ::testing::ElementsAre("old"));
}

TEST_F(ClassNames, AClassThatBecomesReachableGetsThePlainName) {
    run("class C: pass\nkept = C\ndel C");
    EXPECT_EQ(nameOfClass("kept"), "#1/__main__.C");
    run("C = kept");
    EXPECT_EQ(nameOfClass("kept"), "__main__.C");
    EXPECT_EQ(classOf("#1/__main__.C"), nullptr);
}

TEST_F(ClassNames, FollowARenamedClass) {
    run("class C: pass");
    EXPECT_EQ(nameOfClass("C"), "__main__.C");
    run("C.__qualname__ = 'D'\nD = C");
    EXPECT_EQ(nameOfClass("C"), "__main__.D");
    run("C.__module__ = 'elsewhere'");
    EXPECT_EQ(nameOfClass("C"), "#1/elsewhere.D");
}

TEST_F(ClassNames, QualificationIsRecognisedAndRemoved) {
    using zelk::nameresolution::getBaseClassNameFromFullName;
    using zelk::nameresolution::isSoftwarePackageQualifiedName;
    EXPECT_EQ(getBaseClassNameFromFullName("#12/a.B"), "a.B");
    for (const char* plain : {"a.B", "#/a.B", "#1a/B", "1/a.B", "#1", "#1/", ""}) {
        EXPECT_FALSE(isSoftwarePackageQualifiedName(plain)) << plain;
        EXPECT_EQ(getBaseClassNameFromFullName(plain), plain);
    }
}

TEST_F(ClassNames, BeyondAsciiAreKept) {
    run("class Größe:\n def längе(self): pass");
    EXPECT_EQ(nameOfClass("Größe"), "__main__.Größe");
    EXPECT_THAT(methods("__main__.Größe"), ::testing::ElementsAre("längе"));
}

TEST_F(ClassNames, MadeAndDroppedInALoopNeitherGrowNorConfuse) {
    run("import gc\n"
        "def make(i):\n"
        " class C: pass\n"
        " setattr(C, f'member{i % 7}', lambda self: None)\n"
        " return C");
    // The host gives a class number to each class that it knows, and uses those of forgotten classes again.
    std::int32_t largest = 0;
    for (int round = 0; round < 3000; ++round) {
        run("c = make(" + std::to_string(round) + ")");
        const std::string name = nameOfClass("c");
        ASSERT_THAT(methods(name), ::testing::ElementsAre("member" + std::to_string(round % 7)));
        if (round % 50 == 0) {
            run("gc.collect()");
        }
        largest = std::max(largest, static_cast<std::int32_t>(qxGetClassID(value("c()").get())));
    }
    EXPECT_LT(largest, 1000);
    run("del c\ngc.collect()\nc = make(0)");
    EXPECT_EQ(nameOfClass("c"), "#1/__main__.make.<locals>.C");
}

TEST_F(ClassNames, OfADeadClassFindNothing) {
    run("import gc\ndef f():\n class C: pass\n return C\nc = f()");
    const std::string name = nameOfClass("c");
    zelk::COSClass* cls = classOf(name);
    ASSERT_NE(cls, nullptr);
    run("del c\ngc.collect()");
    EXPECT_EQ(classOf(name), nullptr);
    EXPECT_EQ(cls->getDefinition(false), nullptr);
    EXPECT_FALSE(cls->getEnumerationMembers()->hasMoreElements());
}

TEST_F(ClassNames, DerivationFollowsTheResolutionOrder) {
    run("class A: pass\nclass B(A): pass\nclass Liar(type):\n def __subclasscheck__(cls, other): return True\n"
        "class L(metaclass=Liar): pass");
    EXPECT_TRUE(classOf("__main__.B")->isSubclassOf(id("__main__.A")));
    EXPECT_TRUE(classOf("__main__.B")->isSubclassOf(id("__main__.B")));
    EXPECT_TRUE(classOf("__main__.B")->isSubclassOf(id("builtins.object")));
    EXPECT_TRUE(classOf("__main__.B")->isSubclassOf(id("object")));
    EXPECT_FALSE(classOf("__main__.A")->isSubclassOf(id("__main__.B")));
    EXPECT_FALSE(classOf("__main__.A")->isSubclassOf(id("__main__.L")));
    EXPECT_FALSE(classOf("__main__.A")->isSubclassOf({}));
    EXPECT_FALSE(classOf("__main__.A")->isSubclassOf(id("nothing")));
}

TEST_F(ClassNames, HiddenClassesBeginWithAnUnderscore) {
    run("class _C:\n class D: pass\nclass E:\n class _F: pass");
    EXPECT_TRUE(classOf("__main__._C")->isHidden());
    EXPECT_FALSE(classOf("__main__._C.D")->isHidden());
    EXPECT_TRUE(classOf("__main__.E._F")->isHidden());
}

}  // namespace
