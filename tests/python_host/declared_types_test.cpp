// Where a class may declare the type of an attribute, and which of these places decides.
#include "tests/python_host/declared_type.h"

namespace {

using namespace session;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class DeclaredTypes : public PythonTest {
protected:
    static bool canImport(const std::string& module) {
        run("import importlib.util as util\nfound = util.find_spec('" + module + "') is not None\ndel util");
        return evalNumber("int(found)") != 0;
    }
};

TEST_F(DeclaredTypes, NothingDeclaredIsAnEmptyHandle) {
    run("class A:\n __slots__ = ('slot',)\n plain = 3\n @property\n def p(self): pass");
    EXPECT_EQ(idOf("slot"), "<none>");
    EXPECT_EQ(idOf("plain"), "<none>");
    EXPECT_EQ(idOf("p"), "<none>");
    EXPECT_FALSE(property("builtins.int", "real")->getDataType());
}

TEST_F(DeclaredTypes, TheClassThatDeclaresTheAttributeAnnotatesIt) {
    run("class Base:\n x: int\n y: str\nclass A(Base):\n x: float");
    EXPECT_EQ(idOf("x"), "builtins.float");
    EXPECT_EQ(idOf("y"), "builtins.str");
}

TEST_F(DeclaredTypes, APropertyIsOfTheTypeOfItsGettersResult) {
    run("import functools, enum\nclass A:\n"
        " @property\n def p(self) -> int: trace.append('p')\n"
        " @functools.cached_property\n def c(self) -> list[str]: trace.append('c')\n"
        " @property\n def t(self) -> 'A': trace.append('t')\n"
        " @enum.property\n def e(self) -> float: trace.append('e')\n"
        " @property\n def q(self, other: int = 3) -> str: trace.append('q')\n"
        "A.q.fget.__annotations__\n"
        "A.builtin = property(len)\n"
        "A.nothing = property()");
    EXPECT_EQ(idOf("p"), "builtins.int");
    EXPECT_EQ(idOf("c"), "list[str]");
    EXPECT_EQ(idOf("t"), "__main__.A");
    EXPECT_EQ(idOf("e"), "builtins.float");
    EXPECT_EQ(idOf("q"), "builtins.str");
    EXPECT_EQ(idOf("builtin"), "<none>");
    EXPECT_EQ(idOf("nothing"), "<none>");
}

TEST_F(DeclaredTypes, AGettersNamesAreThoseThatItSees) {
    run("import types\nelsewhere = {'Local': float}\n"
        "exec('def getter(self) -> \"Local\": pass', elsewhere)\n"
        "class A:\n p = property(elsewhere['getter'])");
    EXPECT_EQ(idOf("p"), "builtins.float");
}

TEST_F(DeclaredTypes, TheAnnotationGoesBeforeTheGetter) {
    run("class A:\n x: int\n @property\n def x(self) -> str: pass");
    EXPECT_EQ(idOf("x"), "builtins.int");
}

TEST_F(DeclaredTypes, ADataClassFieldTellsWhatTheAnnotationsNoLongerDo) {
    run("from dataclasses import make_dataclass, field\n"
        "A = make_dataclass('A', [('u', list[int], field(default_factory=list))])\n"
        "A.__module__ = '__main__'\ndel A.__annotations__");
    EXPECT_EQ(idOf("u"), "list[int]");
}

TEST_F(DeclaredTypes, ADataClassFieldMayBeAText) {
    run("from dataclasses import make_dataclass, field\n"
        "A = make_dataclass('A', [('u', 'dict[str, A]', field(default_factory=dict))])\n"
        "A.__module__ = '__main__'\ndel A.__annotations__");
    EXPECT_EQ(idOf("u"), "dict[str, __main__.A]");
}

TEST_F(DeclaredTypes, AModelsFieldAddsItsLimits) {
    if (!canImport("pydantic")) {
        GTEST_SKIP() << "pydantic is not installed";
    }
    run("from pydantic import BaseModel, Field\nfrom typing import Annotated, Optional\nclass A(BaseModel):\n"
        " x: int = Field(3, ge=0, lt=10, multiple_of=2)\n"
        " s: str = Field('', regex='^a', max_length=3, min_length=1)\n"
        " o: Optional[int] = Field(None, gt=0.5)\n"
        " a: Annotated[int, Field(le=7)] = 3\n"
        " p: int = 3");
    EXPECT_EQ(idOf("x"), "builtins.int");
    EXPECT_EQ(typeOf("x").className, "builtins.int");
    EXPECT_THAT(typeOf("x").validators, ElementsAre("ge=0", "lt=10", "multiple_of=2"));
    EXPECT_THAT(typeOf("s").validators, ElementsAre("min_length=1", "max_length=3", "regex=^a"));
    EXPECT_EQ(idOf("o"), "int | None");
    EXPECT_EQ(typeOf("o").className, "");
    EXPECT_THAT(typeOf("o").validators, ElementsAre("gt=0.5"));
    EXPECT_THAT(typeOf("a").validators, ElementsAre("le=7"));
    EXPECT_FALSE(typeOf("p").isValidation);
}

TEST_F(DeclaredTypes, AModelsFieldTellsTheTypeThatNoAnnotationDoes) {
    if (!canImport("pydantic")) {
        GTEST_SKIP() << "pydantic is not installed";
    }
    run("from pydantic import BaseModel\nfrom typing import List, Dict\nclass A(BaseModel):\n"
        " x: List[int] = []\n y = 3.5\n z: Dict[str, int] = {}\n"
        "del A.__annotations__");
    EXPECT_EQ(idOf("x"), "list[int]");
    EXPECT_EQ(idOf("y"), "builtins.float");
    EXPECT_EQ(idOf("z"), "dict[str, int]");
}

TEST_F(DeclaredTypes, ATraitTellsItsTypeByItsOwnClass) {
    if (!canImport("traitlets")) {
        GTEST_SKIP() << "traitlets is not installed";
    }
    run("import traitlets as t\nfrom enum import Enum\nclass Colour(Enum):\n RED = 1\n BLUE = 2\n"
        "class Mine(t.Unicode): pass\nclass Own(t.TraitType): pass\n"
        "class A(t.HasTraits):\n"
        " i = t.Int()\n f = t.CFloat()\n u = t.Unicode()\n b = t.Bool()\n y = t.Bytes()\n c = t.Complex()\n"
        " l = t.List(t.Int())\n d = t.Dict()\n s = t.Set()\n p = t.Tuple()\n"
        " k = t.Instance(Colour)\n q = t.Instance('collections.OrderedDict')\n w = t.Instance('no.such.Thing')\n"
        " m = Mine()\n o = Own()\n any = t.Any()\n e = t.UseEnum(Colour)\n ty = t.Type(klass=Colour)");
    EXPECT_EQ(idOf("i"), "builtins.int");
    EXPECT_EQ(idOf("f"), "builtins.float");
    EXPECT_EQ(idOf("u"), "builtins.str");
    EXPECT_EQ(idOf("b"), "builtins.bool");
    EXPECT_EQ(idOf("y"), "builtins.bytes");
    EXPECT_EQ(idOf("c"), "builtins.complex");
    EXPECT_EQ(idOf("l"), "builtins.list");
    EXPECT_EQ(idOf("d"), "builtins.dict");
    EXPECT_EQ(idOf("s"), "builtins.set");
    EXPECT_EQ(idOf("p"), "builtins.tuple");
    EXPECT_EQ(idOf("k"), "__main__.Colour");
    EXPECT_EQ(idOf("q"), "collections.OrderedDict");
    EXPECT_EQ(idOf("w"), "no.such.Thing");
    EXPECT_EQ(idOf("m"), "builtins.str");
    EXPECT_EQ(idOf("o"), "__main__.Own");
    EXPECT_EQ(idOf("any"), "Any");
    EXPECT_THAT(typeOf("e").values, ElementsAre("RED", "BLUE"));
    EXPECT_EQ(idOf("ty"), "type[__main__.Colour]");
}

TEST_F(DeclaredTypes, ATraitsLimitsAreValidators) {
    if (!canImport("traitlets")) {
        GTEST_SKIP() << "traitlets is not installed";
    }
    run("import traitlets as t\nclass Number(int): pass\nclass A(t.HasTraits):\n"
        " i = t.Int(min=0, max=10)\n f = t.Float(max=0.5)\n g = t.Int(min=Number(3), max=True)\n n = t.Int()");
    EXPECT_TRUE(typeOf("i").isValidation);
    EXPECT_EQ(typeOf("i").className, "builtins.int");
    EXPECT_THAT(typeOf("i").validators, ElementsAre("min=0", "max=10"));
    EXPECT_THAT(typeOf("f").validators, ElementsAre("max=0.5"));
    EXPECT_THAT(typeOf("g").validators, IsEmpty());
    EXPECT_FALSE(typeOf("n").isValidation);
}

TEST_F(DeclaredTypes, TheAnnotationGoesBeforeTheTraitThatStillAddsItsLimits) {
    if (!canImport("traitlets")) {
        GTEST_SKIP() << "traitlets is not installed";
    }
    run("import traitlets as t\nclass A(t.HasTraits):\n i: bool = t.Int(min=0)");
    EXPECT_EQ(idOf("i"), "builtins.bool");
    EXPECT_THAT(typeOf("i").validators, ElementsAre("min=0"));
}

}  // namespace
