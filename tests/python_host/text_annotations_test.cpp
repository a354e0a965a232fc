// Annotations that are kept as text, as every one is under `from __future__ import annotations`.
#include "tests/python_host/declared_type.h"

namespace {

using namespace session;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class TextAnnotations : public PythonTest {
protected:
    /// The identifier of the type that an attribute annotated with a text has.
    static std::string idOfText(const std::string& text) {
        annotate(text);
        return idOf("x");
    }

    static DeclaredType typeOfText(const std::string& text) {
        annotate(text);
        return typeOf("x");
    }

private:
    static void annotate(const std::string& text) {
        const Ref object = Ref::steal(PyUnicode_FromStringAndSize(text.data(), static_cast<Py_ssize_t>(text.size())));
        const Ref main = Ref::share(PyImport_AddModule("__main__"));
        ASSERT_EQ(PyObject_SetAttrString(main.get(), "text", object.get()), 0);
        run("if 'A' not in globals():\n class A: pass\n"
            "A.__annotations__ = {'x': text}");
    }
};

TEST_F(TextAnnotations, SayWhatTheLivingOnesSay) {
    run("from __future__ import annotations\nimport typing\nfrom typing import *\nimport collections.abc\n"
        "class A:\n"
        " a: int\n b: list[int]\n c: typing.Optional[str]\n d: int | None\n e: Callable[[int], str]\n"
        " f: Literal['x', 3]\n g: ClassVar[Final[int]]\n h: Union[int, A]\n i: dict[str, List[A]]\n"
        " j: tuple[int, ...]\n k: tuple[()]\n l: None\n m: Any\n n: collections.abc.Sequence[int]\n"
        " o: (int | str)\n p: List");
    EXPECT_EQ(evalText("A.__annotations__['b']"), "list[int]");
    EXPECT_EQ(idOf("a"), "builtins.int");
    EXPECT_EQ(idOf("b"), "list[int]");
    EXPECT_EQ(idOf("c"), "str | None");
    EXPECT_EQ(idOf("d"), "int | None");
    EXPECT_EQ(idOf("e"), "collections.abc.Callable[[int], str]");
    EXPECT_EQ(idOf("f"), "Literal['x', 3]");
    EXPECT_THAT(typeOf("f").values, ElementsAre("x", "3"));
    EXPECT_EQ(idOf("g"), "builtins.int");
    EXPECT_EQ(idOf("h"), "int | __main__.A");
    EXPECT_EQ(idOf("i"), "dict[str, list[__main__.A]]");
    EXPECT_EQ(idOf("j"), "tuple[int, ...]");
    EXPECT_EQ(idOf("k"), "tuple[()]");
    EXPECT_EQ(idOf("l"), nameOfClass("type(None)"));
    EXPECT_EQ(idOf("m"), "Any");
    EXPECT_EQ(idOf("n"), "collections.abc.Sequence[int]");
    EXPECT_EQ(idOf("o"), "int | str");
    EXPECT_EQ(idOf("p"), "builtins.list");
}

TEST_F(TextAnnotations, NamesAreThoseOfTheClassThenOfItsModuleThenTheBuiltins) {
    run("class Inner: pass\nclass float: pass\n"
        "class A:\n class Inner: pass\n def int(self): pass\n"
        " a: 'Inner'\n b: 'float'\n c: 'str'\n d: 'int'\n e: 'A.Inner'");
    EXPECT_EQ(idOf("a"), "__main__.A.Inner");
    EXPECT_EQ(idOf("b"), "__main__.float");
    EXPECT_EQ(idOf("c"), "builtins.str");
    EXPECT_EQ(idOf("d"), "builtins.int");
    EXPECT_EQ(idOf("e"), "__main__.A.Inner");
}

TEST_F(TextAnnotations, AModulesOwnHookIsNotAsked) {
    run("import types, sys\nm = types.ModuleType('text_annotations_module')\n"
        "m.__getattr__ = lambda name: trace.append(name)\nsys.modules['text_annotations_module'] = m\n"
        "class A:\n a: 'm.Missing'\n b: 'Missing'\nA.__module__ = 'text_annotations_module'\nB = A\n"
        "m.A = A\nm.m = m");
    EXPECT_EQ(declaredType("text_annotations_module.A", "a").id, "m.Missing");
    EXPECT_EQ(declaredType("text_annotations_module.A", "b").id, "Missing");
    run("del sys.modules['text_annotations_module']");
}

TEST_F(TextAnnotations, ANameThatLeadsNowhereStandsForItself) {
    run("import math\nnumber = 3\ndef function(): pass");
    EXPECT_EQ(idOfText("no.such.Type"), "no.such.Type");
    EXPECT_EQ(idOfText("Missing[int, 'x']"), "Missing[int, 'x']");
    EXPECT_EQ(idOfText("list[Missing]"), "list[Missing]");
    EXPECT_EQ(idOfText("Missing | None"), "Missing | None");
    EXPECT_EQ(idOfText("math"), "math");
    EXPECT_EQ(idOfText("number"), "number");
    EXPECT_EQ(idOfText("function"), "function");
    EXPECT_EQ(idOfText("int.Missing"), "int.Missing");
}

TEST_F(TextAnnotations, AliasesAreWhatTheyStandFor) {
    run("from typing import *\nT = TypeVar('T')\nU = TypeVar('U')\nVector = list[float]\nPair = tuple[T, U]\n"
        "Same = Dict[T, list[T]]\nMode = Literal['r', 'w']\nLater = 'list[int]'");
    EXPECT_EQ(idOfText("Vector"), "list[float]");
    EXPECT_EQ(idOfText("Pair[int, str]"), "tuple[int, str]");
    EXPECT_EQ(idOfText("Same[int]"), "dict[int, list[int]]");
    EXPECT_EQ(idOfText("Pair[int]"), "<none>");
    EXPECT_EQ(idOfText("Optional[Vector]"), "list[float] | None");
    EXPECT_THAT(typeOfText("Mode").values, ElementsAre("r", "w"));
    EXPECT_THAT(typeOfText("Literal['a', Mode]").values, ElementsAre("a", "r", "w"));
    EXPECT_EQ(idOfText("Later"), "list[int]");
}

TEST_F(TextAnnotations, TextsWithinTextsAndForwardReferencesAreRead) {
    run("from typing import *\nclass Node: pass");
    EXPECT_EQ(idOfText("'int'"), "builtins.int");
    EXPECT_EQ(idOfText("list['Node']"), "list[__main__.Node]");
    EXPECT_EQ(idOfText("list[\"dict['str', int]\"]"), "list[dict[str, int]]");
    run("A.__annotations__ = {'x': List['Node'], 'y': ForwardRef('list[Node]'), 'z': List['Missing']}");
    EXPECT_EQ(idOf("x"), "list[__main__.Node]");
    EXPECT_EQ(idOf("y"), "list[__main__.Node]");
    EXPECT_EQ(idOf("z"), "list[Missing]");
}

TEST_F(TextAnnotations, LiteralsAreReadWithTheirEscapesAndPrefixes) {
    run("from typing import Literal\nimport enum\nclass Colour(enum.Enum):\n RED = 1");
    EXPECT_THAT(typeOfText(R"(Literal['it\'s', "a\nb", r'\d', u'\xe4\u20ac'])").values,
                ElementsAre("it's", "a\nb", "\\d", "\u00e4\u20ac"));
    EXPECT_THAT(typeOfText("Literal[b'\\x00a', -3, 0x10, True, None, Colour.RED]").values,
                ElementsAre("b'\\x00a'", "-3", "16", "True", "None", "Colour.RED"));
    EXPECT_EQ(idOfText("Literal[Missing.RED]"), "Literal[Missing.RED]");
    EXPECT_FALSE(typeOfText("Literal[Missing.RED]").hasValueList);
    EXPECT_EQ(idOfText("Literal[f'x']"), "<none>");
    EXPECT_EQ(idOfText("Literal['''x''']"), "<none>");
    EXPECT_EQ(idOfText("Literal[3.5]"), "<none>");
    EXPECT_EQ(idOfText("Literal[]"), "<none>");
}

TEST_F(TextAnnotations, NotesAreReadAsFarAsTheyArePlain) {
    run("from __future__ import annotations\nimport numpy as np, numpy.typing as npt\nfrom typing import Annotated\n"
        "def check(v): pass\nclass Gt:\n def __init__(self, gt): trace.append('made')\n"
        "class A:\n"
        " a: Annotated[int, check, Gt(gt=0), Missing, missing.Limit(3, [1, 2]), 'a note', lambda x, y: x]\n"
        " b: Annotated[npt.NDArray[np.float64], (3, None, 'n')]\n"
        " c: Annotated[np.ndarray, '3, :']\n"
        " d: Annotated[int, lambda x: x]");
    EXPECT_EQ(typeOf("a").className, "builtins.int");
    EXPECT_THAT(typeOf("a").validators, ElementsAre("check", "Gt(gt=0)", "Missing", "Limit(3, [1, 2])"));
    EXPECT_THAT(typeOf("b").sizes, ElementsAre("3", ":", "n"));
    EXPECT_THAT(typeOf("c").sizes, ElementsAre("3", ":"));
    EXPECT_EQ(idOf("d"), "builtins.int");
    EXPECT_THAT(typeOf("d").validators, IsEmpty());
}

TEST_F(TextAnnotations, WhatIsNoAnnotationSaysNothing) {
    run("from typing import *\ndef f(): trace.append('called')\nclass Odd:\n"
        " def __class_getitem__(cls, item): trace.append('subscripted')\n"
        " def __or__(self, other): trace.append('or')\nodd = Odd()");
    for (const char* text : {"",
                             " ",
                             "list[",
                             "list]",
                             "list[int",
                             "f()",
                             "lambda: 0",
                             "3",
                             "...",
                             "'unterminated",
                             "int |",
                             "| int",
                             "int or str",
                             "list[int]]",
                             "a.b.",
                             "a..b",
                             ".a",
                             "[int]",
                             "()",
                             "(int, str)",
                             "{'a': 1}",
                             "x := 3",
                             "f\"int\"",
                             "Optional",
                             "Optional[int, str]",
                             "Literal",
                             "Annotated[int",
                             "list[,]",
                             "list[int,,int]",
                             "int # comment",
                             "Annotated[int, (]",
                             "list[int)",
                             "-",
                             "-x",
                             "True",
                             "b'int'",
                             "\\",
                             "int;int"}) {
        EXPECT_EQ(idOfText(text), "<none>") << text;
    }
    EXPECT_EQ(idOfText("Odd[int]"), "__main__.Odd[int]");
    EXPECT_EQ(idOfText("odd | int"), "odd | int");
}

TEST_F(TextAnnotations, BlanksDoNotMatter) {
    EXPECT_EQ(idOfText("  dict [ str ,\n int ] | None "), "dict[str, int] | None");
    EXPECT_EQ(idOfText("tuple[int,]"), "tuple[int]");
}

TEST_F(TextAnnotations, ThatSpeakOfThemselvesEnd) {
    run("from typing import *\nNode = 'list[Node]'\nPing = 'list[Pong]'\nPong = 'list[Ping]'\n"
        "Tree = List['Tree']\nJSON = Union[dict[str, 'JSON'], list['JSON'], None]\nSelfish = 'Selfish'\n"
        "class A:\n a: Tree\n b: JSON");
    EXPECT_EQ(idOfText("Node"), "list[Node]");
    EXPECT_EQ(idOfText("Ping"), "list[list[Ping]]");
    EXPECT_EQ(idOfText("Tree"), "list[Tree]");
    EXPECT_EQ(idOfText("Selfish"), "Selfish");
    EXPECT_EQ(idOfText("JSON"), "dict[str, JSON] | list[JSON] | None");
    run("class A:\n a: Tree\n b: JSON\n c: 'list[A]'");
    EXPECT_EQ(idOf("a"), "list[Tree]");
    EXPECT_EQ(idOf("b"), "dict[str, JSON] | list[JSON] | None");
    EXPECT_EQ(idOf("c"), "list[__main__.A]");
}

TEST_F(TextAnnotations, ThatAreTooDeepOrTooLongSayNothing) {
    const auto nested = [](int depth) {
        std::string text = "int";
        for (int level = 0; level < depth; ++level) {
            text = "list[" + text + "]";
        }
        return text;
    };
    EXPECT_EQ(idOfText(nested(20)), nested(20));
    EXPECT_EQ(idOfText(nested(5000)), "<none>");
    EXPECT_EQ(idOfText("Missing" + std::string(5000, '[')), "<none>");
    EXPECT_EQ(idOfText(std::string(100'000, 'x')), "<none>");
    run("from typing import Literal");
    EXPECT_EQ(idOfText("Literal[" + std::string(5000, '9') + "]"), "<none>");
}

TEST_F(TextAnnotations, ThatUnfoldWithoutEndEnd) {
    run("a0 = 'tuple[int, int]'\nfor i in range(1, 38): globals()[f'a{i}'] = f'tuple[a{i-1}, a{i-1}]'");
    EXPECT_EQ(idOfText("a5").size(), 200U);
    EXPECT_LE(idOfText("a37").size(), 200U);
    run("from typing import TypeVar\nT = TypeVar('T')\nTwice = tuple[T, T]");
    std::string text = "int";
    for (int level = 0; level < 35; ++level) {
        text = "Twice[" + text + "]";
    }
    EXPECT_EQ(idOfText(text), "<none>");
}

TEST_F(TextAnnotations, WithOddLettersAreNoTrouble) {
    run("class \u00c4rger: pass");
    EXPECT_EQ(idOfText("\u00c4rger"), "__main__.\u00c4rger");
    EXPECT_EQ(idOfText("list[\u20ac]"), "list[\u20ac]");
    EXPECT_EQ(idOfText(std::string("in\0t", 4)), "<none>");
    EXPECT_EQ(idOfText(std::string("Missing['\0']", 12)), "<none>");
    run("A.__annotations__ = {'x': '\\ud800'}");
    EXPECT_EQ(idOf("x"), "\uFFFD");
}

}  // namespace
