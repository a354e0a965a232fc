// How the types of annotations are called.
#include "tests/python_host/declared_type.h"

namespace {

using namespace session;
using ::testing::EndsWith;
using ::testing::IsEmpty;

using TypeIdentifiers = PythonTest;

TEST_F(TypeIdentifiers, AClassGoesByItsCanonicalName) {
    run("import numpy, pandas\nclass A:\n"
        " a: int\n b: pandas.DataFrame\n c: numpy.float64\n d: None\n e: 'A'\n"
        "class B: pass\nA.__annotations__['f'] = B");
    EXPECT_EQ(idOf("a"), "builtins.int");
    EXPECT_EQ(idOf("b"), "pandas.core.frame.DataFrame");
    EXPECT_EQ(idOf("c"), "numpy.float64");
    EXPECT_EQ(idOf("d"), nameOfClass("type(None)"));
    EXPECT_EQ(idOf("e"), "__main__.A");
    EXPECT_EQ(idOf("f"), "__main__.B");
    EXPECT_FALSE(typeOf("a").isValidation);
    EXPECT_FALSE(typeOf("a").hasValueList);
}

TEST_F(TypeIdentifiers, AlternativesAreJoinedByBars) {
    run("from typing import Optional, Union, List\nclass B: pass\nclass A:\n"
        " a: Optional[int]\n b: int | None\n c: Union[int, str]\n d: Union[int, B, None]\n"
        " e: Optional[List[int]]\n f: List[Optional[int]]");
    EXPECT_EQ(idOf("a"), "int | None");
    EXPECT_EQ(idOf("b"), "int | None");
    EXPECT_EQ(idOf("c"), "int | str");
    EXPECT_EQ(idOf("d"), "int | __main__.B | None");
    EXPECT_EQ(idOf("e"), "list[int] | None");
    EXPECT_EQ(idOf("f"), "list[int | None]");
}

TEST_F(TypeIdentifiers, GenericClassesShowTheirArguments) {
    run("import typing, collections\nfrom typing import Generic, TypeVar\nT = TypeVar('T')\nclass Box(Generic[T]): "
        "pass\n"
        "class A:\n"
        " a: list[int]\n b: typing.List[int]\n c: dict[str, list[float]]\n d: tuple[int, ...]\n e: tuple[()]\n"
        " f: typing.List\n g: typing.Tuple[int, str]\n h: Box[int]\n i: collections.OrderedDict[str, int]\n"
        " j: typing.Type[int]\n k: list['Box']\n l: dict[str, None]");
    EXPECT_EQ(idOf("a"), "list[int]");
    EXPECT_EQ(idOf("b"), "list[int]");
    EXPECT_EQ(idOf("c"), "dict[str, list[float]]");
    EXPECT_EQ(idOf("d"), "tuple[int, ...]");
    EXPECT_EQ(idOf("e"), "tuple[()]");
    EXPECT_EQ(idOf("f"), "builtins.list");
    EXPECT_EQ(idOf("g"), "tuple[int, str]");
    EXPECT_EQ(idOf("h"), "__main__.Box[int]");
    EXPECT_EQ(idOf("i"), "collections.OrderedDict[str, int]");
    EXPECT_EQ(idOf("j"), "type[int]");
    EXPECT_EQ(idOf("k"), "list[__main__.Box]");
    EXPECT_EQ(idOf("l"), "dict[str, None]");
}

TEST_F(TypeIdentifiers, CallablesShowTheirParametersInBrackets) {
    run("import collections.abc as c\nfrom typing import Callable, ParamSpec, Concatenate\nP = ParamSpec('P')\nclass "
        "A:\n"
        " a: Callable[[int, str], float]\n b: Callable[..., int]\n c: c.Callable[[int], None]\n d: Callable[P, int]\n"
        " e: Callable[Concatenate[int, P], int]\n f: Callable[[], int]\n g: Callable");
    EXPECT_EQ(idOf("a"), "collections.abc.Callable[[int, str], float]");
    EXPECT_EQ(idOf("b"), "collections.abc.Callable[..., int]");
    EXPECT_EQ(idOf("c"), "collections.abc.Callable[[int], None]");
    EXPECT_EQ(idOf("d"), "collections.abc.Callable[P, int]");
    EXPECT_EQ(idOf("e"), "collections.abc.Callable[Concatenate[int, P], int]");
    EXPECT_EQ(idOf("f"), "collections.abc.Callable[[], int]");
    EXPECT_EQ(idOf("g"), "collections.abc.Callable");
}

TEST_F(TypeIdentifiers, VariablesAndNewTypesAndFormsGoByTheirNames) {
    run("from typing import *\nT = TypeVar('T')\nUserId = NewType('UserId', int)\nclass A:\n"
        " a: T\n b: UserId\n c: Any\n d: Self\n e: list[T]\n f: dict[UserId, Any]\n g: LiteralString");
    EXPECT_EQ(idOf("a"), "T");
    EXPECT_EQ(idOf("b"), "UserId");
    EXPECT_EQ(idOf("c"), "Any");
    EXPECT_EQ(idOf("d"), "Self");
    EXPECT_EQ(idOf("e"), "list[T]");
    EXPECT_EQ(idOf("f"), "dict[UserId, Any]");
    EXPECT_EQ(idOf("g"), "LiteralString");
}

TEST_F(TypeIdentifiers, WhatIsSaidOfTheAttributeIsNotPartOfItsType) {
    run("from typing import *\nfrom dataclasses import InitVar\nclass A:\n"
        " a: ClassVar[int]\n b: Final[list[int]] = []\n c: Required[str]\n d: NotRequired[int]\n"
        " f: Final = 3\n g: ClassVar = 3\n"
        "A.__annotations__['h'] = list[InitVar[int]]");
    EXPECT_EQ(idOf("a"), "builtins.int");
    EXPECT_EQ(idOf("b"), "list[int]");
    EXPECT_EQ(idOf("c"), "builtins.str");
    EXPECT_EQ(idOf("d"), "builtins.int");
    EXPECT_EQ(idOf("f"), "<none>");
    EXPECT_EQ(idOf("g"), "<none>");
    EXPECT_EQ(idOf("h"), "list[int]");
}

TEST_F(TypeIdentifiers, LongOnesAreCut) {
    run("from typing import Literal\nclass A:\n a: Literal[tuple(f'value{i}' for i in range(100))]\n"
        " b: Literal[tuple('\\u00e4' * i for i in range(1, 30))]\n"
        "A.__annotations__['c'] = 'x' * 300");
    EXPECT_EQ(idOf("a").size(), 200U);
    EXPECT_THAT(idOf("a"), EndsWith("..."));
    EXPECT_LE(idOf("b").size(), 200U);
    EXPECT_THAT(idOf("b"), EndsWith("\u00e4..."));
    EXPECT_EQ(idOf("c"), std::string(197, 'x') + "...");
    EXPECT_EQ(typeOf("a").values.size(), 100U);
}

TEST_F(TypeIdentifiers, AreReadAnewAtEachCall) {
    run("class A:\n x: int");
    EXPECT_EQ(idOf("x"), "builtins.int");
    run("A.__annotations__['x'] = list[str]");
    EXPECT_EQ(idOf("x"), "list[str]");
    run("A.x = 3\ndel A.__annotations__['x']");
    EXPECT_EQ(idOf("x"), "<none>");
}

TEST_F(TypeIdentifiers, APropertyOutlivesItsHandleAsAType) {
    run("from typing import Annotated\ndef check(v): pass\nclass A:\n x: Annotated[int, check]");
    const zelk::COSDataTypePtr type = property("__main__.A", "x")->getDataType();
    run("del A, check\nimport gc\ngc.collect()");
    EXPECT_STREQ(type->getID().c_str(), "builtins.int");
    EXPECT_THAT(zelk::COSValidationType::get(*type)->getValidators(), ::testing::ElementsAre("check"));
}

}  // namespace
