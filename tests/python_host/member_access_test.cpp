// Who may use a member of a class, and who gets to see it.
#include "tests/python_host/session.h"

namespace {

using namespace session;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

using MemberAccess = PythonTest;

Names namesOf(zelk::COSAccessList classes) {
    Names names;
    for (const zelk::COSInternedID cls : classes) {
        names.emplace_back(cls.c_str());
    }
    return names;
}

TEST_F(MemberAccess, APublicMemberNeedsNoList) {
    run("class A:\n def f(self): pass\n x = 1");
    EXPECT_EQ(method("__main__.A", "f")->getAccess(), zelk::publicAccess);
    EXPECT_THAT(method("__main__.A", "f")->getAccessList(), IsEmpty());
    EXPECT_THAT(property("__main__.A", "x")->getGetAccessList(), IsEmpty());
    EXPECT_THAT(property("__main__.A", "x")->getSetAccessList(), IsEmpty());
}

TEST_F(MemberAccess, OneUnderscoreOpensAMemberToTheDeclaringClass) {
    run("class A:\n def _f(self): pass\n _x = 1\nclass B(A): pass");
    EXPECT_EQ(method("__main__.B", "_f")->getAccess(), 1);
    EXPECT_THAT(namesOf(method("__main__.B", "_f")->getAccessList()), ElementsAre("__main__.A"));
    EXPECT_EQ(property("__main__.B", "_x")->getGetAccess(), 1);
    EXPECT_EQ(property("__main__.B", "_x")->getSetAccess(), 1);
    EXPECT_THAT(namesOf(property("__main__.B", "_x")->getGetAccessList()), ElementsAre("__main__.A"));
    EXPECT_THAT(namesOf(property("__main__.B", "_x")->getSetAccessList()), ElementsAre("__main__.A"));
}

TEST_F(MemberAccess, AMangledNameIsPrivateAndOpenToNoOtherClass) {
    run("class Account:\n"
        " __slots__ = ('__slot',)\n"
        " __x = 1\n"
        " __y: int\n"
        " def __f(self): pass");
    for (const char* name : {"_Account__slot", "_Account__x", "_Account__y"}) {
        const zelk::COSPropInfo* found = property("__main__.Account", name);
        ASSERT_NE(found, nullptr) << name;
        EXPECT_EQ(found->getGetAccess(), zelk::privateAccess) << name;
        EXPECT_EQ(found->getSetAccess(), zelk::privateAccess) << name;
        EXPECT_THAT(found->getGetAccessList(), IsEmpty()) << name;
        EXPECT_THAT(found->getSetAccessList(), IsEmpty()) << name;
    }
    EXPECT_EQ(method("__main__.Account", "_Account__f")->getAccess(), zelk::privateAccess);
    EXPECT_THAT(method("__main__.Account", "_Account__f")->getAccessList(), IsEmpty());
}

TEST_F(MemberAccess, TheUnderscoresInFrontOfAClassNameAreNotPartOfTheMangling) {
    run("class _Account:\n __x = 1\nclass __Account:\n __x = 1\nclass __:\n __x = 1");
    EXPECT_EQ(property("__main__._Account", "_Account__x")->getGetAccess(), zelk::privateAccess);
    EXPECT_EQ(property("__main__.__Account", "_Account__x")->getGetAccess(), zelk::privateAccess);
    EXPECT_EQ(property("__main__.__", "__x")->getGetAccess(), zelk::privateAccess);
}

TEST_F(MemberAccess, ANameMangledForAnotherClassIsOnlyProtected) {
    run("class Account:\n _Other__x = 1\n _Account__ = 1\n _Account__y__ = 1\n _Account_z = 1\n _Accounts__x = 1");
    for (const char* name : {"_Other__x", "_Account__", "_Account__y__", "_Account_z", "_Accounts__x"}) {
        EXPECT_EQ(property("__main__.Account", name)->getGetAccess(), 1) << name;
    }
}

TEST_F(MemberAccess, AClassKeepsAnInheritedPrivateNamePrivateToItsDeclarer) {
    run("class Base:\n __x = 1\nclass Derived(Base):\n __x = 2");
    EXPECT_EQ(property("__main__.Derived", "_Base__x")->getGetAccess(), zelk::privateAccess);
    EXPECT_EQ(property("__main__.Derived", "_Derived__x")->getGetAccess(), zelk::privateAccess);
    const zelk::COSInterfacePtr inherited = classOf("__main__.Derived")->findProperty(id("_Base__x"));
    EXPECT_STREQ(zelk::cosiClassOfMember(inherited.get())->getName(), "__main__.Base");
}

TEST_F(MemberAccess, APrivateNameThatTheCompilerNeverSawIsPrivateAsItStands) {
    run("class A: pass\nsetattr(A, '__x', 1)");
    EXPECT_EQ(property("__main__.A", "__x")->getGetAccess(), zelk::privateAccess);
    EXPECT_THAT(property("__main__.A", "__x")->getGetAccessList(), IsEmpty());
}

TEST_F(MemberAccess, OfAClassWithAQualifiedNameFollowsTheNameWithoutTheQualification) {
    run("def make():\n class Local:\n  __x = 1\n return Local\n"
        "first, second = make(), make()\n"
        "Bare = type('Bare', (), {'_Bare__x': 1, '__module__': None})");
    for (const char* cls : {"first", "second", "Bare"}) {
        const std::string member = cls == std::string("Bare") ? "_Bare__x" : "_Local__x";
        EXPECT_EQ(property(nameOfClass(cls), member)->getGetAccess(), zelk::privateAccess) << cls;
    }
    EXPECT_EQ(nameOfClass("Bare").front(), '#');
}

TEST_F(MemberAccess, WhatCannotBeAssignedIsOpenForAssignmentToNobody) {
    run("class A:\n"
        " @property\n def r(self): pass\n"
        " @property\n def _r(self): pass\n"
        " _LIMIT = 3\n"
        " __KEY = 7");
    EXPECT_EQ(property("__main__.A", "r")->getSetAccess(), 1);
    EXPECT_THAT(property("__main__.A", "r")->getSetAccessList(), IsEmpty());
    EXPECT_EQ(property("__main__.A", "_r")->getSetAccess(), 1);
    EXPECT_THAT(property("__main__.A", "_r")->getSetAccessList(), IsEmpty());
    EXPECT_THAT(namesOf(property("__main__.A", "_r")->getGetAccessList()), ElementsAre("__main__.A"));
    EXPECT_EQ(property("__main__.A", "_LIMIT")->getSetAccess(), zelk::constantSetAccess);
    EXPECT_THAT(property("__main__.A", "_LIMIT")->getSetAccessList(), IsEmpty());
    EXPECT_EQ(property("__main__.A", "_A__KEY")->getSetAccess(), zelk::constantSetAccess);
}

TEST_F(MemberAccess, TheListFollowsTheNameOfTheClass) {
    run("class A:\n _x = 1\nKept = A");
    const zelk::COSInterfacePtr node = classOf("__main__.A")->findProperty(id("_x"));
    EXPECT_THAT(namesOf(zelk::cosiToProp(node.get())->getGetAccessList()), ElementsAre("__main__.A"));
    run("A.__qualname__ = 'Kept'\ndel A");
    EXPECT_THAT(namesOf(zelk::cosiToProp(node.get())->getGetAccessList()), ElementsAre("__main__.Kept"));
}

TEST_F(MemberAccess, TheListOutlivesTheClass) {
    run("class A:\n def _f(self): pass");
    const zelk::COSInterfacePtr node = classOf("__main__.A")->findMethods(id("_f"))->nextElement();
    run("del A\nimport gc\ngc.collect()");
    ASSERT_EQ(classOf("__main__.A"), nullptr);
    EXPECT_THAT(namesOf(zelk::cosiToMethod(node.get())->getAccessList()), ElementsAre("__main__.A"));
}

TEST_F(MemberAccess, OfAFunctionInANamespaceNeedsNoClass) {
    run("import types, sys\nmodule = types.ModuleType('plain_functions')\nmodule._f = lambda: 0\n"
        "sys.modules['plain_functions'] = module");
    const zelk::COSInterfacePtr space = zelk::COSPackage::getNamespaceInterface(id("plain_functions"));
    const zelk::COSInterfacePtr node = zelk::cosiToNamespace(space.get())->getFunctions()->nextElement();
    EXPECT_EQ(zelk::cosiToMethod(node.get())->getAccess(), 1);
    EXPECT_THAT(zelk::cosiToMethod(node.get())->getAccessList(), IsEmpty());
    run("del sys.modules['plain_functions']");
}

TEST_F(MemberAccess, WhatIsListedIsShown) {
    run("class A:\n"
        " def f(self): pass\n"
        " def _g(self): pass\n"
        " def __len__(self): return 0\n"
        " x = 1\n"
        " __doc__ = 'text'\n"
        "setattr(A, 'two words', 1)");
    EXPECT_EQ(method("__main__.A", "f")->getVisibility(), zelk::shownVisibility);
    EXPECT_EQ(method("__main__.A", "_g")->getVisibility(), zelk::shownVisibility);
    EXPECT_NE(method("__main__.A", "__len__")->getVisibility(), zelk::shownVisibility);
    EXPECT_EQ(property("__main__.A", "x")->getVisibility(), zelk::shownVisibility);
    EXPECT_NE(property("__main__.A", "__doc__")->getVisibility(), zelk::shownVisibility);
    EXPECT_NE(property("__main__.A", "two words")->getVisibility(), zelk::shownVisibility);
}

TEST_F(MemberAccess, AMetaclassIsNotAskedForNames) {
    run("class Meta(type):\n"
        " __name__ = property(lambda cls: trace.append('name'))\n"
        " def __eq__(cls, other): trace.append('eq'); return True\n"
        " def __hash__(cls): trace.append('hash'); return 0\n"
        "class A(metaclass=Meta):\n __x = 1\n _y = 1\n"
        "trace.clear()");
    EXPECT_EQ(property("__main__.A", "_A__x")->getGetAccess(), zelk::privateAccess);
    EXPECT_THAT(namesOf(property("__main__.A", "_y")->getGetAccessList()), ElementsAre("__main__.A"));
}

}  // namespace
