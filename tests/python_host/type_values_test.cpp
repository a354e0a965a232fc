// The values that a type lists.
#include "tests/python_host/declared_type.h"

namespace {

using namespace session;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

using TypeValues = PythonTest;

TEST_F(TypeValues, OfALiteralAreItsArgumentsInTheirOrder) {
    run("from typing import Literal\nimport enum\nclass Colour(enum.Enum):\n RED = 1\n"
        "class A:\n a: Literal['b', 'a']\n b: Literal['x', 3, -1, True, None, b'by', Colour.RED]\n"
        " c: Literal['it\\'s', 'a\"b']");
    EXPECT_TRUE(typeOf("a").hasValueList);
    EXPECT_THAT(typeOf("a").values, ElementsAre("b", "a"));
    EXPECT_THAT(typeOf("a").converted, IsEmpty());
    EXPECT_EQ(idOf("a"), "Literal['b', 'a']");
    EXPECT_THAT(typeOf("b").values, ElementsAre("x", "3", "-1", "True", "None", "b'by'", "Colour.RED"));
    EXPECT_THAT(typeOf("b").converted, ElementsAre("3", "-1", "True", "None", "b'by'", "Colour.RED"));
    EXPECT_EQ(idOf("b"), "Literal['x', 3, -1, True, None, b'by', Colour.RED]");
    EXPECT_THAT(typeOf("c").values, ElementsAre("it's", "a\"b"));
}

TEST_F(TypeValues, ATextThatIsNoZeroTerminatedUtf8IsConverted) {
    run("from typing import Literal\nclass A:\n a: Literal['a\\0b', '\\ud800', '\\u00e4']");
    EXPECT_THAT(typeOf("a").values, ElementsAre("'a\\x00b'", "'\\ud800'", "\u00e4"));
    EXPECT_THAT(typeOf("a").converted, ElementsAre("'a\\x00b'", "'\\ud800'"));
}

TEST_F(TypeValues, LookingAlikeAreNotTheSame) {
    run("from typing import Literal\nclass A:\n a: Literal['1', 1, 'None', None]");
    EXPECT_THAT(typeOf("a").values, ElementsAre("1", "1", "None", "None"));
}

TEST_F(TypeValues, OfAnEnumerationAreTheNamesOfItsMembersWithoutAliases) {
    run("import enum\nclass Colour(enum.Enum):\n RED = 2\n BLUE = 1\n CRIMSON = 2\n"
        " def method(self): pass\n"
        "class Number(enum.IntEnum):\n ONE = 1\n"
        "class Empty(enum.Enum): pass\n"
        "class A:\n a: Colour\n b: Number\n c: Empty\n d: enum.Enum");
    EXPECT_EQ(idOf("a"), "__main__.Colour");
    EXPECT_TRUE(typeOf("a").hasValueList);
    EXPECT_THAT(typeOf("a").values, ElementsAre("RED", "BLUE"));
    EXPECT_THAT(typeOf("a").converted, IsEmpty());
    EXPECT_THAT(typeOf("b").values, ElementsAre("ONE"));
    EXPECT_FALSE(typeOf("c").hasValueList);
    EXPECT_FALSE(typeOf("d").hasValueList);
}

TEST_F(TypeValues, FlagsCombineSoThatTheirMembersAreNotAllTheirValues) {
    run("import enum\nclass F(enum.Flag):\n R = 1\n W = 2\nclass A:\n a: F");
    EXPECT_FALSE(typeOf("a").hasValueList);
    EXPECT_THAT(typeOf("a").values, IsEmpty());
}

TEST_F(TypeValues, ABoolHasNoList) {
    run("class A:\n a: bool\n b: bool | None");
    EXPECT_FALSE(typeOf("a").hasValueList);
    EXPECT_FALSE(typeOf("b").hasValueList);
}

TEST_F(TypeValues, OfAlternativesAreListedWhenAllOfThemCanBe) {
    run("from typing import *\nimport enum\nclass Colour(enum.Enum):\n RED = 1\n"
        "class A:\n a: Optional[Literal['x', 'y']]\n b: Union[Literal['x'], int]\n c: Colour | Literal['RED', None]\n"
        " d: None");
    EXPECT_THAT(typeOf("a").values, ElementsAre("x", "y", "None"));
    EXPECT_THAT(typeOf("a").converted, ElementsAre("None"));
    EXPECT_FALSE(typeOf("b").hasValueList);
    EXPECT_THAT(typeOf("c").values, ElementsAre("RED", "None"));
    EXPECT_FALSE(typeOf("d").hasValueList);
}

TEST_F(TypeValues, StayBesideAValidation) {
    run("from typing import *\nclass A:\n a: Annotated[Literal['x', 'y'], 'a note']");
    const DeclaredType type = typeOf("a");
    EXPECT_TRUE(type.isValidation);
    EXPECT_THAT(type.validators, IsEmpty());
    EXPECT_EQ(type.className, "");
    EXPECT_EQ(type.id, "Literal['x', 'y']");
    EXPECT_THAT(type.values, ElementsAre("x", "y"));
}

TEST_F(TypeValues, OfATraitAreThoseThatItWasGiven) {
    run("import importlib.util as util\nfound = util.find_spec('traitlets') is not None");
    if (evalNumber("int(found)") == 0) {
        GTEST_SKIP() << "traitlets is not installed";
    }
    run("import traitlets as t\nclass Odd: pass\nclass A(t.HasTraits):\n"
        " a = t.Enum(['x', 'y', 3, 0.5])\n b = t.CaselessStrEnum(('P', 'Q'), allow_none=True)\n"
        " c = t.Enum([Odd()])\n d = t.Enum([])");
    EXPECT_THAT(typeOf("a").values, ElementsAre("x", "y", "3", "0.5"));
    EXPECT_THAT(typeOf("a").converted, ElementsAre("3", "0.5"));
    EXPECT_THAT(typeOf("b").values, ElementsAre("P", "Q", "None"));
    EXPECT_FALSE(typeOf("c").hasValueList);
    EXPECT_EQ(idOf("c"), "traitlets.traitlets.Enum");
    EXPECT_FALSE(typeOf("d").hasValueList);
}

TEST_F(TypeValues, EveryTypeIsConvertedToAnyAndToNothingElse) {
    const zelk::COSInternedID type = id("list[int]");
    const zelk::COSConversion* conversion = zelk::COSTypeRepository::getConversion(type, id("any"));
    ASSERT_NE(conversion, nullptr);
    EXPECT_EQ(zelk::COSTypeRepository::getConversion(id("builtins.int"), id("any")), conversion);
    EXPECT_EQ(zelk::COSTypeRepository::getConversion(type, id("builtins.int")), nullptr);
    EXPECT_EQ(zelk::COSTypeRepository::getConversion(type, {}), nullptr);
    EXPECT_EQ(zelk::COSTypeRepository::getConversion({}, id("any")), nullptr);
}

TEST_F(TypeValues, WhatAVisitorThrowsPassesOut) {
    struct Thrower final : zelk::COSVisitor<const zelk::COSTypeValue*> {
        void visit(const zelk::COSTypeValue* /*value*/) override { throw 3; }
    } thrower;
    run("from typing import Literal\nclass A:\n a: Literal['x']");
    const zelk::COSDataTypePtr type = property("__main__.A", "a")->getDataType();
    EXPECT_THROW(type->visitValues(thrower), int);
}

}  // namespace
