// Types with demands: what `Annotated` says, and the sizes of arrays.
#include "tests/python_host/declared_type.h"

namespace {

using namespace session;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using ::testing::StartsWith;

using ValidationTypes = PythonTest;

TEST_F(ValidationTypes, APlainTypeIsNone) {
    run("class A:\n a: int\n b: list[int]\n c: int | None");
    EXPECT_FALSE(typeOf("a").isValidation);
    EXPECT_FALSE(typeOf("b").isValidation);
    EXPECT_FALSE(typeOf("c").isValidation);
}

TEST_F(ValidationTypes, AnnotatedNamesTheClassAndTheChecks) {
    run("from typing import Annotated\n"
        "def positive(v): trace.append('positive')\n"
        "class Checker:\n def __call__(self, v): trace.append('call')\n"
        "class Strict: pass\n"
        "class A:\n a: Annotated[int, positive, Checker(), Strict, lambda v: v, len, 'a note', 3, None]\n"
        " b: Annotated[list[int], positive]\n"
        " c: Annotated[Annotated[int, positive], Checker()]\n"
        " d: list[Annotated[int, positive]]");
    const DeclaredType a = typeOf("a");
    EXPECT_TRUE(a.isValidation);
    EXPECT_EQ(a.id, "builtins.int");
    EXPECT_EQ(a.className, "builtins.int");
    EXPECT_THAT(a.validators, ElementsAre("positive", "Checker", "Strict", "<lambda>", "len"));
    EXPECT_THAT(a.sizes, IsEmpty());
    EXPECT_EQ(typeOf("b").className, "");
    EXPECT_EQ(typeOf("b").id, "list[int]");
    EXPECT_THAT(typeOf("b").validators, ElementsAre("positive"));
    EXPECT_THAT(typeOf("c").validators, ElementsAre("positive", "Checker"));
    EXPECT_FALSE(typeOf("d").isValidation);
    EXPECT_EQ(typeOf("d").id, "list[int]");
}

TEST_F(ValidationTypes, ADataClassShowsItsPlainFields) {
    run("from typing import Annotated, Any\nfrom dataclasses import dataclass\n"
        "@dataclass(frozen=True, slots=True)\nclass Gt:\n gt: Any\n"
        "@dataclass(frozen=True)\nclass Interval:\n gt: Any = None\n ge: Any = None\n lt: Any = None\n what: Any = "
        "None\n"
        "class Loud:\n def __repr__(self): trace.append('repr'); return ''\n"
        "class A:\n a: Annotated[int, Gt(0), Gt(gt=0.5)]\n b: Annotated[int, Interval(ge=1, lt=10, what='a\\'b')]\n"
        " c: Annotated[int, Interval(ge=Loud())]\n d: Annotated[int, Interval(what='x' * 500)]");
    EXPECT_THAT(typeOf("a").validators, ElementsAre("Gt(gt=0)", "Gt(gt=0.5)"));
    EXPECT_THAT(typeOf("b").validators, ElementsAre("Interval(ge=1, lt=10, what=\"a'b\")"));
    EXPECT_THAT(typeOf("c").validators, ElementsAre("Interval"));
    EXPECT_THAT(typeOf("d").validators, ElementsAre(SizeIs(200)));
}

TEST_F(ValidationTypes, AnArraysShapeGivesItsSizes) {
    run("import numpy as np, numpy.typing as npt\nfrom typing import *\n"
        "N = TypeVar('N')\nHeight = NewType('Height', int)\n"
        "class A:\n"
        " a: np.ndarray[tuple[int, Literal[3]], np.dtype[np.float64]]\n"
        " b: npt.NDArray[np.float64]\n"
        " c: np.ndarray[Tuple[Any, N, Height], np.dtype[Any]]\n"
        " d: np.ndarray[tuple[int, ...], np.dtype[Any]]\n"
        " e: np.ndarray[(3, 4), float]\n"
        " f: np.ndarray\n"
        " g: np.ndarray[tuple[Literal[2, 3]], Any]\n"
        " h: np.ndarray[tuple[str, int], Any]\n"
        " i: 'np.ndarray[tuple[Literal[3], \"n\"], np.dtype[np.int8]]'\n"
        " j: 'npt.NDArray[np.int8]'");
    EXPECT_THAT(typeOf("a").sizes, ElementsAre(":", "3"));
    EXPECT_EQ(typeOf("a").className, "numpy.ndarray");
    EXPECT_EQ(typeOf("a").id, "numpy.ndarray[tuple[int, Literal[3]], numpy.dtype[numpy.float64]]");
    EXPECT_THAT(typeOf("a").validators, IsEmpty());
    EXPECT_TRUE(typeOf("b").isValidation);
    EXPECT_EQ(typeOf("b").className, "numpy.ndarray");
    EXPECT_THAT(typeOf("b").sizes, IsEmpty());
    EXPECT_EQ(typeOf("b").id, "numpy.ndarray[Any, numpy.dtype[numpy.float64]]");
    EXPECT_THAT(typeOf("c").sizes, ElementsAre(":", "N", "Height"));
    EXPECT_THAT(typeOf("d").sizes, IsEmpty());
    EXPECT_THAT(typeOf("e").sizes, ElementsAre("3", "4"));
    EXPECT_FALSE(typeOf("f").isValidation);
    EXPECT_THAT(typeOf("g").sizes, ElementsAre(":"));
    EXPECT_THAT(typeOf("h").sizes, IsEmpty());
    EXPECT_THAT(typeOf("i").sizes, ElementsAre("3", "n"));
    EXPECT_EQ(typeOf("j").id, "numpy.ndarray[Any, numpy.dtype[numpy.int8]]");
}

TEST_F(ValidationTypes, NotesAboutAnArrayGiveItsSizes) {
    run("import numpy as np, numpy.typing as npt\nfrom typing import *\n"
        "def check(v): pass\nclass Sub(np.ndarray): pass\n"
        "class A:\n"
        " a: Annotated[npt.NDArray[np.float64], (3, None, 'n', ...)]\n"
        " b: Annotated[np.ndarray, '3, :', check]\n"
        " c: Annotated[np.ndarray, 'n m 2']\n"
        " d: Annotated[np.ndarray, 'positions, in metres!', (1, 2)]\n"
        " e: Annotated[np.ndarray, (-1, 3)]\n"
        " f: Annotated[np.ndarray, (3, 1.5)]\n"
        " g: Annotated[list, (3, 4)]\n"
        " h: Annotated[Sub, '7']\n"
        " i: Annotated[np.ndarray[tuple[int], Any], (5,)]\n"
        " j: Annotated[np.ndarray, '3,,4']\n"
        " k: Annotated[np.ndarray, (True,)]");
    EXPECT_THAT(typeOf("a").sizes, ElementsAre("3", ":", "n", ":"));
    EXPECT_EQ(typeOf("a").className, "numpy.ndarray");
    EXPECT_THAT(typeOf("a").validators, IsEmpty());
    EXPECT_THAT(typeOf("b").sizes, ElementsAre("3", ":"));
    EXPECT_THAT(typeOf("b").validators, ElementsAre("check"));
    EXPECT_THAT(typeOf("c").sizes, ElementsAre("n", "m", "2"));
    EXPECT_THAT(typeOf("d").sizes, ElementsAre("1", "2"));
    EXPECT_THAT(typeOf("e").sizes, IsEmpty());
    EXPECT_THAT(typeOf("f").sizes, IsEmpty());
    EXPECT_THAT(typeOf("g").sizes, IsEmpty());
    EXPECT_THAT(typeOf("h").sizes, ElementsAre("7"));
    EXPECT_EQ(typeOf("h").className, "__main__.Sub");
    EXPECT_THAT(typeOf("i").sizes, ElementsAre("5"));
    EXPECT_THAT(typeOf("j").sizes, IsEmpty());
    EXPECT_THAT(typeOf("k").sizes, IsEmpty());
}

TEST_F(ValidationTypes, AValidationBelongsToItsType) {
    run("from typing import Annotated\ndef check(v): pass\nclass A:\n a: Annotated[int, check]\n b: int");
    const zelk::COSDataTypePtr type = property("__main__.A", "a")->getDataType();
    EXPECT_EQ(zelk::COSValidationType::get(*type), zelk::COSValidationType::get(*type));
    EXPECT_EQ(zelk::COSValidationType::get(*property("__main__.A", "b")->getDataType()), nullptr);
}

}  // namespace
