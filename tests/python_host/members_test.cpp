#include "hosts/python/python_host.h"
#include "tests/python_host/session.h"

namespace {

using namespace session;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::IsSupersetOf;
using ::testing::Not;

using Members = PythonTest;

TEST_F(Members, OwnClassComesFirstThenTheResolutionOrder) {
    run("class A:\n def a(self): pass\n def both(self): pass\n"
        "class B:\n def b(self): pass\n"
        "class C(B, A):\n def c(self): pass\n def both(self): pass");
    EXPECT_THAT(methods("__main__.C"), ElementsAre("c", "both", "b", "a"));
}

TEST_F(Members, ABasesMethodThatAValueShadowsIsNoMethod) {
    run("class A:\n def run(self): pass\n size = 1\nclass B(A):\n run = None\n def size(self): pass");
    EXPECT_THAT(methods("__main__.B"), ElementsAre("size"));
    EXPECT_THAT(properties("__main__.B"), ElementsAre("run"));
}

TEST_F(Members, AreDeclaredByTheClassInWhichTheyStand) {
    run("class A:\n def f(self): pass\n x = 1\nclass B(A): pass");
    zelk::COSClass* cls = classOf("__main__.B");
    const zelk::COSInterfacePtr method = cls->findMethods(id("f"))->nextElement();
    EXPECT_STREQ(zelk::cosiClassOfMember(method.get())->getName(), "__main__.A");
    EXPECT_STREQ(zelk::cosiClassOfMember(cls->findProperty(id("x")).get())->getName(), "__main__.A");
    EXPECT_FALSE(cls->findMethods(id("x")));
    EXPECT_FALSE(cls->findProperty(id("f")));
    EXPECT_FALSE(cls->findProperty({}));
}

TEST_F(Members, AccessFollowsUnderscores) {
    run("class A:\n"
        " def f(self): pass\n"
        " def _g(self): pass\n"
        " def __len__(self): return 0\n"
        " x = 1\n"
        "setattr(A, '__h', lambda self: 0)");
    EXPECT_EQ(method("__main__.A", "f")->getAccess(), 0);
    EXPECT_EQ(method("__main__.A", "_g")->getAccess(), 1);
    EXPECT_EQ(method("__main__.A", "__h")->getAccess(), 2);
    EXPECT_EQ(method("__main__.A", "__len__")->getAccess(), 0);
    EXPECT_FALSE(method("__main__.A", "__len__")->isListable());
    EXPECT_TRUE(method("__main__.A", "f")->isListable());
    EXPECT_THAT(methods("__main__.A"), ElementsAre("f"));
}

TEST_F(Members, StaticAndClassMethodsAreStatic) {
    run("class A:\n"
        " def plain(self): pass\n"
        " @staticmethod\n def s(): pass\n"
        " @classmethod\n def c(cls): pass\n"
        " builtin = len\n"
        " bound = [].append");
    EXPECT_THAT(methods("__main__.A"), ElementsAre("plain", "s", "c", "builtin", "bound"));
    EXPECT_THAT(staticMethods("__main__.A"), ElementsAre("s", "c", "builtin", "bound"));
    EXPECT_TRUE(method("builtins.dict", "fromkeys")->isStatic());
    EXPECT_FALSE(method("builtins.dict", "keys")->isStatic());
}

TEST_F(Members, KnownMethodDescriptorsAreMethods) {
    run("import functools\n"
        "class A:\n"
        " def base(self, x): pass\n"
        " half = functools.partialmethod(base, 1)\n"
        " @functools.singledispatchmethod\n def single(self, x): pass\n"
        " @functools.lru_cache\n def cached(self): pass\n"
        "class Wrapper:\n"
        " def __get__(self, object, owner=None): trace.append('get')\n"
        " def __call__(self): trace.append('call')\n"
        "A.wrapped = Wrapper()");
    EXPECT_THAT(methods("__main__.A"), ElementsAre("base", "half", "single", "cached", "wrapped"));
}

TEST_F(Members, DescriptorsAndPlainValuesAreProperties) {
    run("import functools\n"
        "class Data:\n"
        " def __get__(self, object, owner=None): trace.append('get')\n"
        " def __set__(self, object, value): trace.append('set')\n"
        "class A:\n"
        " __slots__ = ('slot', '__dict__')\n"
        " @property\n def p(self): trace.append('p')\n"
        " @functools.cached_property\n def c(self): trace.append('c')\n"
        " data = Data()\n"
        " plain = []\n"
        " class Inner: pass");
    EXPECT_THAT(properties("__main__.A"), ElementsAre("p", "c", "data", "plain", "Inner", "slot"));
}

TEST_F(Members, APropertyWithoutSetterCannotBeAssigned) {
    run("class A:\n"
        " @property\n def r(self): pass\n"
        " @property\n def w(self): pass\n"
        " @w.setter\n def w(self, v): pass\n"
        " x = 1\n"
        " _p = 1");
    EXPECT_EQ(property("__main__.A", "r")->getGetAccess(), 0);
    EXPECT_NE(property("__main__.A", "r")->getSetAccess(), 0);
    EXPECT_NE(property("__main__.A", "r")->getSetAccess(), zelk::constantSetAccess);
    EXPECT_EQ(property("__main__.A", "w")->getSetAccess(), 0);
    EXPECT_EQ(property("__main__.A", "x")->getSetAccess(), 0);
    EXPECT_EQ(property("__main__.A", "_p")->getGetAccess(), 1);
    EXPECT_NE(property("builtins.int", "real")->getSetAccess(), 0);
    EXPECT_NE(property("builtins.complex", "real")->getSetAccess(), 0);
}

TEST_F(Members, ConstantsAreFinalOrCapitalisedUnchangeableValues) {
    run("import typing\n"
        "from typing import Final, ClassVar\n"
        "class A:\n"
        " LIMIT = 3\n"
        " LIST = []\n"
        " Mixed = 3\n"
        " a: Final = []\n"
        " b: 'typing.Final[list]' = []\n"
        " c: Final[int] = 3\n"
        " d: 'ClassVar[Final[int]]' = 3\n"
        " e: Final[int]\n"
        " f: 'Finally' = 3\n"
        " g: ClassVar[int] = 3\n"
        " h: typing.List[int] = 3\n"
        " _HIDDEN = 3");
    EXPECT_THAT(constants("__main__.A"), ElementsAre("LIMIT", "a", "b", "c", "d", "e"));
}

TEST_F(Members, AnnotatedAttributesAreProperties) {
    run("class A:\n x: int\n y: str\nclass B(A):\n z: 'no.such.Type'\n x: float = 1.0");
    EXPECT_THAT(properties("__main__.B"), ElementsAre("x", "z", "y"));
    EXPECT_STREQ(property("__main__.A", "x")->getDataType()->getID().c_str(), "builtins.int");
    EXPECT_STREQ(property("__main__.B", "z")->getDataType()->getID().c_str(), "no.such.Type");
}

TEST_F(Members, DataclassFieldsWithFactoriesAreProperties) {
    run("from dataclasses import dataclass, field, InitVar, make_dataclass\n"
        "@dataclass\nclass A:\n"
        " x: list = field(default_factory=list)\n"
        " y: int = 3\n"
        " seed: InitVar[int] = field(kw_only=True)\n"
        "@dataclass\nclass B(A):\n"
        " z: dict = field(default_factory=dict)\n"
        "M = make_dataclass('M', [('u', list, field(default_factory=list))])\n"
        "del M.__annotations__");
    EXPECT_THAT(properties("__main__.A"), ::testing::UnorderedElementsAre("x", "y"));
    EXPECT_THAT(properties("__main__.B"), ::testing::UnorderedElementsAre("x", "y", "z"));
    run("M.__module__ = '__main__'");
    EXPECT_THAT(properties("__main__.M"), ElementsAre("u"));
    const zelk::COSInterfacePtr x = classOf("__main__.B")->findProperty(id("x"));
    EXPECT_STREQ(zelk::cosiClassOfMember(x.get())->getName(), "__main__.A");
}

TEST_F(Members, ModelFieldsAreProperties) {
    run("class Model: pass\nModel.__fields__ = {'name': object(), 3: 4, '_hidden': 1}");
    EXPECT_THAT(properties("__main__.Model"), ElementsAre("name"));
}

TEST_F(Members, EnumerationsListTheirMembersWithAliases) {
    run("import enum\n"
        "class Colour(enum.Enum):\n RED = 1\n GREEN = 2\n CRIMSON = 1\n def shade(self): pass\n"
        "class Flags(enum.Flag):\n A = 1\n B = 2\n AB = 3");
    EXPECT_THAT(enumerationMembers("__main__.Colour"), ElementsAre("RED", "GREEN", "CRIMSON"));
    EXPECT_THAT(enumerationMembers("__main__.Flags"), ElementsAre("A", "B", "AB"));
    EXPECT_THAT(methods("__main__.Colour"), ElementsAre("shade"));
    EXPECT_THAT(properties("__main__.Colour"), ElementsAre("name", "value"));
    EXPECT_NE(property("__main__.Colour", "value")->getSetAccess(), 0);
    EXPECT_THAT(enumerationMembers("builtins.int"), IsEmpty());
}

TEST_F(Members, OfAClassThatOnlyLooksLikeAnEnumerationAreNoEnumerationMembers) {
    run("class Fake:\n _member_map_ = {'A': 1}\n A = 1");
    EXPECT_THAT(enumerationMembers("__main__.Fake"), IsEmpty());
    EXPECT_THAT(constants("__main__.Fake"), ElementsAre("A"));
}

TEST_F(Members, NamesThatCannotFollowADotAreNotListed) {
    run("class A: pass\nsetattr(A, 'two words', 1)\nsetattr(A, '', 1)\nsetattr(A, 'a\\0b', 1)\n"
        "setattr(A, '\\ud800', 1)\nsetattr(A, 'fine', 1)");
    EXPECT_THAT(properties("__main__.A"), ElementsAre("fine"));
}

TEST_F(Members, KeysThatAreNotInternedAreNotLost) {
    run("import types\n"
        "key = ''.join(['mem', 'ber'])\n"
        "A = type('A', (), {key: lambda self: 0, ''.join(['va', 'lue']): 1})\n"
        "A.__module__ = '__main__'");
    EXPECT_THAT(methods("__main__.A"), ElementsAre("member"));
    EXPECT_THAT(properties("__main__.A"), ElementsAre("value"));
    EXPECT_NE(method("__main__.A", "member"), nullptr);
}

TEST_F(Members, AClassMayHaveDynamicProperties) {
    run("class Plain: pass\nclass Slotted:\n __slots__ = ('x',)\n"
        "class Wild:\n __slots__ = ()\n def __getattr__(self, name): trace.append(name)");
    EXPECT_TRUE(classOf("__main__.Plain")->hasDynamicProperties());
    EXPECT_FALSE(classOf("__main__.Slotted")->hasDynamicProperties());
    EXPECT_TRUE(classOf("__main__.Wild")->hasDynamicProperties());
    EXPECT_FALSE(classOf("builtins.int")->hasDynamicProperties());
}

TEST_F(Members, StackedDiamondsAreWalkedOnce) {
    run("class Base:\n def f(self): pass\nclasses = [Base]\n"
        "for i in range(60):\n"
        " left = type(f'L{i}', (classes[-1],), {f'l{i}': lambda self: 0})\n"
        " right = type(f'R{i}', (classes[-1],), {f'r{i}': lambda self: 0})\n"
        " classes.append(type(f'D{i}', (left, right), {}))\n"
        "Top = classes[-1]");
    EXPECT_EQ(methods(nameOfClass("Top")).size(), 121U);
}

TEST_F(Members, OfCompiledLibrariesAreFound) {
    run("import numpy, pandas");
    EXPECT_THAT(methods("numpy.ndarray"), IsSupersetOf({"reshape", "sum", "astype"}));
    EXPECT_THAT(properties("numpy.ndarray"), IsSupersetOf({"T", "shape", "dtype", "ndim"}));
    EXPECT_THAT(methods("pandas.DataFrame"), IsSupersetOf({"groupby", "merge", "from_dict"}));
    EXPECT_THAT(staticMethods("pandas.DataFrame"), Contains("from_dict"));
    EXPECT_THAT(properties("pandas.DataFrame"), IsSupersetOf({"columns", "index", "iloc", "plot"}));
    EXPECT_THAT(properties("pandas.DataFrame"), Not(Contains("_mgr")));
}

TEST_F(Members, EachNodeKeepsItsTableAlive) {
    run("class A:\n def f(self): pass");
    const zelk::COSInterfacePtr node = classOf("__main__.A")->findMethods(id("f"))->nextElement();
    run("del A.f\nA.g = lambda self: 0");
    EXPECT_THAT(methods("__main__.A"), ElementsAre("g"));
    EXPECT_STREQ(zelk::cosiToMethod(node.get())->getName(), "f");
    EXPECT_STREQ(zelk::cosiClassOfMember(node.get())->getName(), "__main__.A");
}

TEST_F(Members, AViewOfAnotherKindIsNull) {
    run("class A:\n def f(self): pass\n x = 1");
    const zelk::COSInterfacePtr method = classOf("__main__.A")->findMethods(id("f"))->nextElement();
    EXPECT_EQ(zelk::cosiToProp(method.get()), nullptr);
    EXPECT_EQ(zelk::cosiToEnum(method.get()), nullptr);
    EXPECT_EQ(zelk::cosiToClass(method.get()), nullptr);
    EXPECT_EQ(zelk::cosiToNamespace(method.get()), nullptr);
    EXPECT_EQ(zelk::cosiToMethod(nullptr), nullptr);
    EXPECT_EQ(zelk::cosiClassOfMember(nullptr), nullptr);
}

TEST_F(Members, AnIteratorPastItsEndSaysSo) {
    run("class A:\n def f(self): pass");
    const zelk::COSIteratorPtr found = classOf("__main__.A")->findMethods(id("f"));
    found->nextElement();
    EXPECT_FALSE(found->hasMoreElements());
    EXPECT_THROW(found->nextElement(), zelk::ENoElements);
}

}  // namespace
