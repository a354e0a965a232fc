// Annotations, fields and traits that lie, raise or loop. Nothing of theirs runs: each test ends with an empty trace.
#include "tests/python_host/declared_type.h"

namespace {

using namespace session;
using ::testing::AnyOf;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class HostileAnnotations : public PythonTest {
protected:
    void SetUp() override {
        PythonTest::SetUp();
        run("from typing import *\nimport typing, types\n"
            "def mark(name):\n"
            " def hook(*args, **kwargs):\n"
            "  trace.append(name)\n"
            "  raise RuntimeError(name)\n"
            " return hook\n"
            "class Meta(type): pass\n"
            "class Loud(metaclass=Meta): pass\n"
            "loud = Loud()\n"
            "for hook in ['__getattribute__', '__getattr__', '__eq__', '__hash__', '__bool__', '__len__', '__iter__',"
            " '__repr__', '__str__', '__getitem__', '__index__', '__or__', '__call__', '__get__', '__set__']:\n"
            " setattr(Loud, hook, mark(hook))\n"
            "for hook in ['__getattribute__', '__getattr__', '__repr__', '__instancecheck__', '__subclasscheck__',"
            " '__eq__', '__hash__', '__or__', '__iter__', '__getitem__']:\n"
            " setattr(Meta, hook, mark('meta ' + hook))\n"
            "class A: pass\n"
            // A copy, since aliases are shared by all who write the same.
            "def broken(alias, **parts):\n"
            " copy = object.__new__(type(alias))\n"
            " copy.__dict__.update(alias.__dict__)\n"
            " for name, part in parts.items(): copy.__dict__['__' + name + '__'] = part\n"
            " return copy\n"
            "trace.clear()\n");
    }
};

TEST_F(HostileAnnotations, AnObjectIsNoAnnotation) {
    run("A.__annotations__ = {'a': loud, 'b': 3, 'c': [], 'd': (int,), 'e': ..., 'f': lambda: 0, 'g': types,"
        " 'h': b'int', 'i': 3.5, 'j': {}, 'k': len}");
    for (const char* name : {"a", "b", "c", "d", "e", "f", "g", "h", "i", "j", "k"}) {
        EXPECT_EQ(idOf(name), "<none>") << name;
    }
}

TEST_F(HostileAnnotations, AClassWithAHostileMetaclassIsAClass) {
    run("A.__annotations__ = {'a': Loud, 'b': types.GenericAlias(list, (Loud,)), 'c': types.GenericAlias(list, "
        "(loud,))}");
    EXPECT_EQ(idOf("a"), "__main__.Loud");
    EXPECT_EQ(idOf("b"), "list[__main__.Loud]");
    EXPECT_EQ(idOf("c"), "<none>");
}

TEST_F(HostileAnnotations, AnotherMappingIsNoTableOfAnnotations) {
    run("class Mapping(dict):\n pass\n"
        "A.__annotations__ = {'x': int}\n"
        "A.x = 3\n"
        "mapping = Mapping(x=int)\n"
        "for hook in ['__getitem__', 'get', '__contains__', '__iter__', 'keys', 'items', '__missing__']:\n"
        " setattr(Mapping, hook, mark(hook))\n"
        "A.__annotations__ = mapping");
    EXPECT_EQ(idOf("x"), "<none>");
    run("A.__annotations__ = loud");
    EXPECT_EQ(idOf("x"), "<none>");
    run("A.__annotations__ = [('x', int)]");
    EXPECT_EQ(idOf("x"), "<none>");
}

TEST_F(HostileAnnotations, ForeignKeysAreNotCompared) {
    run("class Key:\n"
        " def __hash__(self): return hash('x')\n"
        " def __eq__(self, other): trace.append('eq'); return True\n"
        "A.x = 3\nA.__annotations__ = {Key(): str, 'y': int}");
    EXPECT_EQ(idOf("x"), "<none>");
    EXPECT_EQ(idOf("y"), "builtins.int");
    run("trace.clear()");
}

TEST_F(HostileAnnotations, ALiteralWithForeignArgumentsSaysNothing) {
    run("class Text(str): pass\nclass Number(int): pass\n"
        "def literal(args): return broken(Literal['x'], args=args)\n"
        "A.__annotations__ = {'a': literal((loud,)), 'b': literal([1, 2]), 'c': literal(3), 'd': literal(loud),"
        " 'e': literal((Text('x'),)), 'f': literal((Number(3),)), 'g': literal((1.5,)), 'h': literal(()),"
        " 'i': literal((int,)), 'j': literal((...,)), 'k': literal((10 ** 100000,)), 'l': literal(('ok',))}");
    for (const char* name : {"a", "b", "c", "d", "e", "f", "g", "h", "i", "j", "k"}) {
        EXPECT_EQ(idOf(name), "<none>") << name;
    }
    EXPECT_THAT(typeOf("l").values, ElementsAre("ok"));
}

TEST_F(HostileAnnotations, AliasesWithBrokenPartsSayNothing) {
    run("bare = broken(List[int])\nbare.__dict__.clear()\n"
        "loop = broken(List[int])\nloop.__dict__['__args__'] = (loop,)\n"
        "annotated = broken(Annotated[int, 'x'], metadata=loud)\n"
        "variable = TypeVar('variable')\nvariable.__dict__['__name__'] = loud\n"
        "fresh = NewType('fresh', int)\nfresh.__dict__['__name__'] = 3\n"
        "row = []\nrow.append(row)\n"
        "A.__annotations__ = {'a': broken(List[int], origin=loud), 'b': broken(List[int], args=loud), 'c': bare,"
        " 'd': loop, 'e': annotated, 'f': variable, 'g': fresh, 'h': types.GenericAlias(list, (row,)),"
        " 'i': types.GenericAlias(loud, (int,)), 'j': types.GenericAlias(3, (int,)),"
        " 'k': broken(Optional[int], args=(loud, None)), 'l': broken(Optional[int], args=(3, None))}");
    for (const char* name : {"a", "b", "c", "d", "e", "f", "g", "h", "i", "j", "k", "l"}) {
        EXPECT_EQ(idOf(name), "<none>") << name;
    }
}

TEST_F(HostileAnnotations, AliasesThatUnfoldWithoutEndSayNothing) {
    run("wide = int\nfor i in range(38): wide = tuple[wide, wide]\n"
        "deep = int\nfor i in range(500): deep = list[deep]\n"
        "A.__annotations__ = {'wide': wide, 'deep': deep, 'many': types.GenericAlias(tuple, (int,) * 50000)}");
    EXPECT_EQ(idOf("wide"), "<none>");
    EXPECT_EQ(idOf("deep"), "<none>");
    EXPECT_EQ(idOf("many"), "<none>");
}

TEST_F(HostileAnnotations, NotesAreNotAsked) {
    run("import dataclasses\n"
        "@dataclasses.dataclass\nclass Limit:\n gt: object\n"
        "class Fake:\n __dataclass_fields__ = {'x': 1, 3: 4}\n def __getattr__(self, name): trace.append(name)\n"
        "class Fields:\n __dataclass_fields__ = loud\n"
        "named = lambda v: v\nnamed.__name__ = 'check'\n"
        "note = broken(Annotated[int, 'x'], metadata=(loud, Limit(loud), Fake(), Fields(), named, (loud,), types))\n"
        "A.__annotations__ = {'a': note}");
    EXPECT_THAT(typeOf("a").validators, ElementsAre("Loud", "Limit", "Fake", "Fields", "check", "module"));
}

TEST_F(HostileAnnotations, WrongThingsInTablesOfFieldsSayNothing) {
    run("class Field:\n type = int\n outer_type_ = int\n type_ = int\n def __getattr__(self, name): "
        "trace.append(name)\n"
        "fields = {'a': loud, 'b': 3, 'c': Field(), 'd': None, 'e': int}\n"
        "class A:\n __fields__ = fields\n __dataclass_fields__ = fields\n"
        "class B:\n __fields__ = loud\n __dataclass_fields__ = [('a', int)]\n a = 1\n"
        "import dataclasses\nfield = dataclasses.field()\ndel field.type\n"
        "class C:\n __dataclass_fields__ = {'a': field}");
    for (const char* name : {"a", "b", "c", "d", "e"}) {
        EXPECT_EQ(idOf(name), "<none>") << name;
    }
    EXPECT_FALSE(declaredType("__main__.B", "a").isDeclared);
    EXPECT_FALSE(declaredType("__main__.C", "a").isDeclared);
}

TEST_F(HostileAnnotations, AModelsFieldWithForeignPartsSaysNothing) {
    run("import importlib.util as util\nfound = util.find_spec('pydantic') is not None");
    if (evalNumber("int(found)") == 0) {
        GTEST_SKIP() << "pydantic is not installed";
    }
    run("import pydantic\nclass M(pydantic.BaseModel):\n a: int = 1\n b: int = 2\n c: int = 3\n"
        "f = M.__fields__\nf['a'].outer_type_ = loud\nf['a'].type_ = 3\nf['b'].field_info = loud\n"
        "f['c'].field_info.ge = loud\nf['c'].field_info.regex = type('Text', (str,), {})('x')\n"
        "class A:\n __fields__ = f\n__annotations__ = {}\n"
        "A.__annotations__ = {}\n");
    EXPECT_EQ(idOf("a"), "<none>");
    EXPECT_EQ(idOf("b"), "builtins.int");
    EXPECT_THAT(typeOf("b").validators, IsEmpty());
    EXPECT_THAT(typeOf("c").validators, IsEmpty());
}

TEST_F(HostileAnnotations, ATraitWithForeignPartsIsStillOfItsKind) {
    run("import importlib.util as util\nfound = util.find_spec('traitlets') is not None");
    if (evalNumber("int(found)") == 0) {
        GTEST_SKIP() << "traitlets is not installed";
    }
    run("import traitlets as t\n"
        "i = t.Int()\ni.min = loud\n"
        "e = t.Enum([1])\ne.values = loud\n"
        "k = t.Instance(int)\nk.klass = loud\n"
        "r = t.Enum([1])\nr.values = [loud]\n"
        "A.i, A.e, A.k, A.r = i, e, k, r");
    EXPECT_EQ(idOf("i"), "builtins.int");
    EXPECT_FALSE(typeOf("i").isValidation);
    EXPECT_EQ(idOf("e"), "traitlets.traitlets.Enum");
    EXPECT_EQ(idOf("k"), "traitlets.traitlets.Instance");
    EXPECT_FALSE(typeOf("r").hasValueList);
}

TEST_F(HostileAnnotations, AGettersForeignAnnotationsSayNothing) {
    run("def getter(self) -> int: trace.append('getter')\n"
        "class Getter:\n __annotations__ = {'return': int}\n def __call__(self, object): trace.append('call')\n"
        "def odd(self) -> loud: pass\n"
        "A.a = property(Getter())\nA.b = property(odd)\n"
        "class Late: pass\nA.c = property(Late())\n"
        "for hook in ['__getattribute__', '__getattr__', '__call__', '__get__', '__eq__']:\n"
        " setattr(Late, hook, mark('late'))");
    EXPECT_EQ(idOf("a"), "<none>");
    EXPECT_EQ(idOf("b"), "<none>");
    EXPECT_EQ(idOf("c"), "<none>");
}

TEST_F(HostileAnnotations, AnEnumerationWhoseMembersWereReplacedListsNoStrangers) {
    run("import enum\nclass Colour(enum.Enum):\n RED = 1\n"
        "Colour._member_map_['LOUD'] = loud\nColour._member_map_[3] = 4\n"
        "class Other(enum.Enum):\n RED = 1\n"
        "type.__setattr__(Other, '_member_map_', loud)\n"
        "A.__annotations__ = {'a': Colour, 'b': Other, 'c': 'Literal[Colour.LOUD]'}");
    EXPECT_THAT(typeOf("a").values, ElementsAre("RED"));
    EXPECT_FALSE(typeOf("b").hasValueList);
    EXPECT_EQ(idOf("c"), "Literal[Colour.LOUD]");
}

TEST_F(HostileAnnotations, NamesInATextLeadToNoCode) {
    run("class Module(types.ModuleType):\n def __getattribute__(self, name): trace.append(name); raise AttributeError\n"
        "module = Module('module')\n"
        "class Holder(metaclass=Meta):\n class Inner: pass\n"
        "A.__annotations__ = {'a': 'loud', 'b': 'loud.x', 'c': 'Loud', 'd': 'Holder.Inner', 'e': 'module.x',"
        " 'f': 'loud[int]', 'g': 'Loud.missing'}");
    EXPECT_EQ(idOf("a"), "loud");
    EXPECT_EQ(idOf("b"), "loud.x");
    EXPECT_EQ(idOf("c"), "__main__.Loud");
    EXPECT_EQ(idOf("d"), "__main__.Holder.Inner");
    EXPECT_EQ(idOf("e"), "module.x");
    EXPECT_EQ(idOf("f"), "loud[int]");
    EXPECT_EQ(idOf("g"), "Loud.missing");
}

TEST_F(HostileAnnotations, APendingErrorStaysPending) {
    run("class A:\n x: 'Literal[9]'\n y: 'list['\nA.__annotations__['z'] = Literal[10 ** 5000]");
    const zelk::COSPropInfo* info = property("__main__.A", "z");
    PyErr_SetString(PyExc_KeyError, "mine");
    EXPECT_FALSE(info->getDataType());
    EXPECT_NE(PyErr_ExceptionMatches(PyExc_KeyError), 0);
    PyErr_Clear();
}

TEST_F(HostileAnnotations, TypesThatDieWhileTheyAreReadDoNoHarm) {
    run("import gc\nclass Dying:\n def __del__(self): A.__annotations__ = {'x': str}\n"
        "class A: pass\n"
        "class Note: pass\nnote = Note()\n"
        "def churn():\n"
        " a = Dying()\n a.self = a\n"
        "gc.set_threshold(1)\n"
        "A.__annotations__ = {'x': dict[str, list[Literal['a']]]}\nchurn()");
    for (int turn = 0; turn < 50; ++turn) {
        run("A.__annotations__ = {'x': dict[str, Optional[List[Annotated[int, note]]]]}\nchurn()");
        EXPECT_THAT(idOf("x"), AnyOf("dict[str, list[int] | None]", "builtins.str"));
    }
    run("gc.set_threshold(700, 10, 10)\ndel Dying, churn\ngc.collect()");
}

}  // namespace
