#include <array>
#include <fstream>

#include "contextdata/argument_block_metadata.h"
#include "host/dispatcher.h"
#include "host/function_metadata.h"
#include "host/i18n.h"
#include "host/text.h"
#include "hosts/python/python_host.h"
#include "tests/python_host/session.h"
#include "tests/support/temporary_folder.h"

namespace {

using namespace session;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct Arguments {
    bool isKnown = false;
    Names positional;
    Names keyword;
};

Names namesIn(const qxArray* cell) {
    Names names;
    for (std::size_t index = 0; index < qxGetNumberOfElements(cell); ++index) {
        names.push_back(fl::i18n::to_string(getScalarText(qxGetCell(cell, index))));
    }
    return names;
}

Arguments arguments(const std::string& function, const FunctionScope* scope = nullptr) {
    const auto [positional, keyword, answered] = omGetFunctionMetadata(function, scope);
    EXPECT_EQ(answered, scope);
    EXPECT_EQ(positional == nullptr, keyword == nullptr);
    if (positional == nullptr) {
        return {};
    }
    EXPECT_EQ(qxGetClassID(positional.get()), qxClassID::cell);
    EXPECT_EQ(qxGetClassID(keyword.get()), qxClassID::cell);
    return {true, namesIn(positional.get()), namesIn(keyword.get())};
}

/// Answers "positional | keyword", or "unknown".
std::string shown(const std::string& function, const FunctionScope* scope = nullptr) {
    const Arguments found = arguments(function, scope);
    if (!found.isKnown) {
        return "unknown";
    }
    const auto joined = [](const Names& names) {
        std::string text;
        for (const std::string& name : names) {
            text += (text.empty() ? "" : " ") + name;
        }
        return text;
    };
    return joined(found.positional) + " | " + joined(found.keyword);
}

class FunctionMetadata : public PythonTest {};

TEST_F(FunctionMetadata, PositionsAndKeywordsReachTheirOwnParameters) {
    run("def f(a, b=1, /, c=2, *rest, d, e=3, **more):\n local = a\n return lambda: (b, d)");
    EXPECT_EQ(shown("f"), "a b c | c d e");
}

TEST_F(FunctionMetadata, CollectorsAndLocalVariablesAreNoParameters) {
    run("def f(*args, **kwargs): x = 1\ndef g(): y = 1");
    EXPECT_EQ(shown("f"), " | ");
    EXPECT_EQ(shown("g"), " | ");
}

TEST_F(FunctionMetadata, EveryKindOfPythonFunctionDeclaresItsCode) {
    run("async def coroutine(a): pass\ndef generator(a, b): yield\nlam = lambda x, *, größe: 0\n"
        "genexpr = (x for x in [])");
    EXPECT_EQ(shown("coroutine"), "a | a");
    EXPECT_EQ(shown("generator"), "a b | a b");
    EXPECT_EQ(shown("lam"), "x | x größe");
    EXPECT_EQ(shown("genexpr"), "unknown");
}

TEST_F(FunctionMetadata, AnUnknownFunctionHasTwoEmptyArrays) {
    run("number = 3");
    for (const char* name :
         {"", ".", "nothing", "number", "number.", ".number", "number..real", "no.such", "é.x", "\xFF", "__main__"}) {
        EXPECT_EQ(shown(name), "unknown") << name;
    }
}

TEST_F(FunctionMetadata, MethodsAreCalledWithoutTheirObject) {
    run("class C:\n"
        " def method(self, a, *, k): pass\n"
        " @classmethod\n def make(cls, b): pass\n"
        " @staticmethod\n def free(c): pass\n"
        " def collects(*args, k): pass\n"
        "c = C()\nbound = c.method\nmade = C.make\nclass D(C): pass\nd = D()");
    EXPECT_EQ(shown("c.method"), "a | a k");
    EXPECT_EQ(shown("bound"), "a | a k");
    EXPECT_EQ(shown("d.method"), "a | a k");
    EXPECT_EQ(shown("C.method"), "self a | self a k");
    EXPECT_EQ(shown("c.collects"), " | k");
    for (const char* made : {"c.make", "C.make", "made", "d.make", "D.make"}) {
        EXPECT_EQ(shown(made), "b | b") << made;
    }
    for (const char* free : {"c.free", "C.free", "D.free"}) {
        EXPECT_EQ(shown(free), "c | c") << free;
    }
}

TEST_F(FunctionMetadata, AClassDeclaresWhatItsConstructorTakes) {
    run("import dataclasses, collections, enum\n"
        "class Init:\n def __init__(self, a, *, k=1): pass\n"
        "class New:\n def __new__(cls, b): return object.__new__(cls)\n"
        "class Both(New):\n"
        " def __new__(cls, *args, **kwargs): return object.__new__(cls)\n def __init__(self, c): pass\n"
        "class Derived(Init): pass\n"
        "class Nearest(Init):\n def __new__(cls, d): return object.__new__(cls)\n"
        "class Nothing: pass\n"
        "class Number(int):\n def __new__(cls, value): return int.__new__(cls, value)\n"
        "@dataclasses.dataclass\nclass Data:\n x: int\n y: float = 0.0\n _: dataclasses.KW_ONLY = None\n z: int = 1\n"
        "Point = collections.namedtuple('Point', 'left top')\n");
    EXPECT_EQ(shown("Init"), "a | a k");
    EXPECT_EQ(shown("New"), "b | b");
    EXPECT_EQ(shown("Both"), "c | c");
    EXPECT_EQ(shown("Derived"), "a | a k");
    EXPECT_EQ(shown("Nearest"), "d | d");
    EXPECT_EQ(shown("Nothing"), " | ");
    EXPECT_EQ(shown("Number"), "value | value");
    EXPECT_EQ(shown("Data"), "x y | x y z");
    EXPECT_EQ(shown("Point"), "left top | left top");
}

TEST_F(FunctionMetadata, AMetaclassThatMakesTheObjectsDeclaresForItsClasses) {
    run("class Meta(type):\n def __call__(cls, made): trace.append('call')\n"
        "class C(metaclass=Meta):\n def __init__(self, initialised): pass\n"
        "import abc\nclass A(abc.ABC):\n def __init__(self, plain): pass");
    EXPECT_EQ(shown("C"), "made | made");
    EXPECT_EQ(shown("A"), "plain | plain");
}

TEST_F(FunctionMetadata, ClassesInCDeclareInTheirDocumentation) {
    run("class Mine(enumerate): pass");
    EXPECT_EQ(shown("enumerate"), "iterable start | iterable start");
    EXPECT_EQ(shown("property"), "fget fset fdel doc | fget fset fdel doc");
    EXPECT_EQ(shown("Mine"), "iterable start | iterable start");
    EXPECT_EQ(shown("object"), " | ");
    EXPECT_EQ(shown("dict"), "unknown");
    EXPECT_EQ(shown("range"), "unknown");
}

TEST_F(FunctionMetadata, BuiltInFunctionsDeclareInTheirDocumentation) {
    run("import math\ntext = 'x'\njoin = text.join");
    EXPECT_EQ(shown("len"), "obj | ");
    EXPECT_EQ(shown("sorted"), "iterable | key reverse");
    EXPECT_EQ(shown("math.gcd"), " | ");
    EXPECT_EQ(shown("math.isclose"), "a b | a b rel_tol abs_tol");
    EXPECT_EQ(shown("math.sqrt"), "x | ");
    EXPECT_EQ(shown("join"), "iterable | ");
    EXPECT_EQ(shown("text.split"), "sep maxsplit | sep maxsplit");
    EXPECT_EQ(shown("str.split"), "sep maxsplit | sep maxsplit");
    EXPECT_EQ(shown("int.__add__"), "value | ");
    EXPECT_EQ(shown("dict.fromkeys"), "iterable value | ");
    EXPECT_EQ(shown("iter"), "unknown");
}

TEST_F(FunctionMetadata, APartialCallDeclaresWhatIsLeft) {
    run("import functools\ndef f(a, b, c=1, *, d=2): pass\n"
        "first = functools.partial(f, 0)\nnamed = functools.partial(f, b=5)\nboth = functools.partial(first, c=1, "
        "d=2)\n"
        "full = functools.partial(f, 1, 2, 3, 4, 5)\nof_len = functools.partial(len)\nof_iter = "
        "functools.partial(iter)\n"
        "class Mine(functools.partial): pass\nmine = Mine(f, 0)\n"
        "class C:\n def m(self, x, y): pass\nmethod = functools.partial(C().m, 1)");
    EXPECT_EQ(shown("first"), "b c | b c d");
    EXPECT_EQ(shown("named"), "a | a b c d");
    EXPECT_EQ(shown("both"), "b | b c d");
    EXPECT_EQ(shown("full"), " | d");
    EXPECT_EQ(shown("of_len"), "obj | ");
    EXPECT_EQ(shown("of_iter"), "unknown");
    EXPECT_EQ(shown("mine"), "b c | b c d");
    EXPECT_EQ(shown("method"), "y | y");
}

TEST_F(FunctionMetadata, AWrapperDeclaresWhatItWraps) {
    run("import functools\n"
        "def decorate(function):\n"
        " @functools.wraps(function)\n def wrapper(*args, **kwargs): return function(*args, **kwargs)\n"
        " return wrapper\n"
        "@decorate\n@decorate\ndef f(a, *, k): pass\n"
        "@functools.lru_cache\ndef cached(b): pass\n"
        "@functools.singledispatch\ndef dispatched(c): pass\n"
        "class C:\n @decorate\n def m(self, x): pass\n"
        "c = C()");
    EXPECT_EQ(shown("f"), "a | a k");
    EXPECT_EQ(shown("cached"), "b | b");
    EXPECT_EQ(shown("dispatched"), "c | c");
    EXPECT_EQ(shown("c.m"), "x | x");
    EXPECT_EQ(shown("C.m"), "self x | self x");
}

TEST_F(FunctionMetadata, ACircleOfWrappersEnds) {
    run("def f(a): pass\ndef g(b): pass\nf.__wrapped__ = g\ng.__wrapped__ = f\n"
        "def own(c): pass\nown.__wrapped__ = own\n"
        "def no_function(d): pass\nno_function.__wrapped__ = 3\n"
        "import functools\nround_about = functools.partial(len)\nround_about.__setstate__((round_about, (), {}, "
        "None))");
    EXPECT_EQ(shown("f"), "b | b");
    EXPECT_EQ(shown("own"), "c | c");
    EXPECT_EQ(shown("no_function"), "d | d");
    EXPECT_EQ(shown("round_about"), "unknown");
    run("round_about.__setstate__((len, (), {}, None))");
}

TEST_F(FunctionMetadata, FunctionsOfTheArrayPackage) {
    run("import numpy as np\na = np.zeros(3)");
    EXPECT_EQ(shown("np.linspace"),
              "start stop num endpoint retstep dtype axis | start stop num endpoint retstep dtype axis");
    EXPECT_EQ(shown("np.linalg.norm"), "x ord axis keepdims | x ord axis keepdims");
}

TEST_F(FunctionMetadata, UniversalFunctionsHaveOptionsAndNamelessOperands) {
    run("import numpy as np");
    EXPECT_EQ(shown("np.add"), "x1 x2 out | out casting order dtype subok signature where");
    EXPECT_EQ(shown("np.sin"), "x1 out | out casting order dtype subok signature where");
    EXPECT_EQ(shown("np.matmul"), "x1 x2 out | out casting order dtype subok signature axes axis");
}

TEST_F(FunctionMetadata, FunctionsInCMaySayInTheirDocumentationAlone) {
    run("import numpy as np\na = np.zeros(3)");
    EXPECT_EQ(shown("np.zeros"), "shape dtype order | dtype order like");
    EXPECT_EQ(shown("np.array"), "object dtype | dtype copy order subok ndmin like");
    EXPECT_EQ(shown("np.arange"), "start stop step dtype | dtype like");
    EXPECT_EQ(shown("np.concatenate"), "a1 axis out dtype casting | axis out dtype casting");
    EXPECT_EQ(shown("a.mean"), "axis dtype out keepdims | axis dtype out keepdims where");
    EXPECT_EQ(shown("max"), "iterable | default key");
}

TEST_F(FunctionMetadata, FunctionsThatTakeNoKeywordsPromiseNoneInTheirDocumentation) {
    run("import math");
    EXPECT_EQ(shown("math.log"), "unknown");
    EXPECT_EQ(shown("{}.pop"), "unknown");
}

TEST_F(FunctionMetadata, ObjectsThatCanBeCalledDeclareTheirMethod) {
    run("class C:\n def __call__(self, a): trace.append('call')\n"
        "class S:\n @staticmethod\n def __call__(b): pass\n"
        "c = C()\nholder = C()\nholder.inner = c");
    EXPECT_EQ(shown("c"), "a | a");
    EXPECT_EQ(shown("holder.inner"), "a | a");
}

TEST_F(FunctionMetadata, NamesLeadThroughObjectsWithoutRunningTheirCode) {
    run("class C:\n"
        " def __init__(self): self.f = lambda a: 0\n"
        " @property\n def p(self): trace.append('property'); return len\n"
        " def __getattr__(self, name): trace.append(name); return len\n"
        "class Reads:\n def __getattribute__(self, name): trace.append(name); return len\n def m(self, x): pass\n"
        "class Meta(type):\n def __getattr__(cls, name): trace.append(name); return len\n"
        "class M(metaclass=Meta): pass\n"
        "c = C()\nreads = Reads()");
    EXPECT_EQ(shown("c.f"), "a | a");
    EXPECT_EQ(shown("c.p"), "unknown");
    EXPECT_EQ(shown("c.missing"), "unknown");
    EXPECT_EQ(shown("reads.m"), "unknown");
    EXPECT_EQ(shown("M.missing"), "unknown");
}

TEST_F(FunctionMetadata, ASignatureThatSomebodyMadeIsLeftAlone) {
    run("class Trap:\n"
        " def __get__(self, *args): trace.append('get'); return self\n"
        " def __call__(self, *args): trace.append('call')\n"
        " def __eq__(self, other): trace.append('eq'); return True\n"
        " def __hash__(self): trace.append('hash'); return hash('__wrapped__')\n"
        "def f(a): pass\nf.__signature__ = Trap()\nf.__text_signature__ = Trap()\n"
        "class C:\n __signature__ = Trap()\n __text_signature__ = Trap()\n def __call__(self, b): pass\n"
        " def __init__(self): self.__dict__[Trap()] = Trap()\n"
        "c = C()\nclass D:\n __init__ = Trap()\n"
        "class E:\n __call__ = Trap()\ne = E()\ntrace.clear()");
    EXPECT_EQ(shown("f"), "a | a");
    EXPECT_EQ(shown("c"), "b | b");
    EXPECT_EQ(shown("e"), "unknown");
    EXPECT_EQ(shown("D"), " | ");
}

TEST_F(FunctionMetadata, TheScopeOfAFileTellsWhatANameMeans) {
    const TemporaryFolder disk;
    std::ofstream(disk.path("caller.py")) << "from math import isclose as near\nimport numpy as np\n";
    run("import math, numpy\ndef near(other): pass\ndef len(mine): pass");
    const FunctionScope* scope = Dispatcher::getDispatcher().getFunctionScope(disk.text("caller.py"));
    ASSERT_NE(scope, nullptr);
    EXPECT_EQ(shown("near", scope), "a b | a b rel_tol abs_tol");
    EXPECT_EQ(shown("np.linalg.norm", scope), "x ord axis keepdims | x ord axis keepdims");
    EXPECT_EQ(shown("len", scope), "obj | ");
    EXPECT_EQ(shown("near"), "other | other");
    EXPECT_EQ(shown("len"), "mine | mine");
    const auto found = ZELKContextData::getArgumentBlockMetadata(disk.text("caller.py"), u"near");
    EXPECT_EQ(found.scope, scope);
    EXPECT_THAT(namesIn(found.first.get()), ElementsAre("a", "b"));
    EXPECT_THAT(namesIn(found.second.get()), ElementsAre("a", "b", "rel_tol", "abs_tol"));
}

TEST_F(FunctionMetadata, WithoutAScopeTheWorkspaceOfTheMomentTells) {
    run("def f(main): pass\nlocals_ = {'f': lambda near: 0}\nglobals_ = {'f': lambda far: 0, 'g': lambda y: 0}");
    const Ref locals = eval("locals_");
    const Ref globals = eval("globals_");
    {
        const python_host::CurrentWorkspace workspace(locals.get(), globals.get());
        EXPECT_EQ(shown("f"), "near | near");
        EXPECT_EQ(shown("g"), "y | y");
        EXPECT_EQ(shown("len"), "obj | ");
    }
    EXPECT_EQ(shown("f"), "main | main");
    EXPECT_EQ(shown("g"), "unknown");
}

TEST_F(FunctionMetadata, ANameThatTheScopeHidesIsNoBuiltIn) {
    run("len = 3");
    EXPECT_EQ(shown("len"), "unknown");
}

TEST_F(FunctionMetadata, AVeryLongNameEnds) {
    run("class C: pass\nC.C = C");
    std::string name = "C";
    for (int step = 0; step < 100'000; ++step) {
        name += ".C";
    }
    EXPECT_EQ(shown(name), " | ");
}

PyObject* doNothing(PyObject* /*self*/, PyObject* /*arguments*/) { Py_RETURN_NONE; }

/// What a function in C with that documentation declares.
std::string shownOfText(const std::string& documentation) {
    PyMethodDef method = {"f", doNothing, METH_VARARGS, documentation.c_str()};
    {
        const Ref function = Ref::steal(PyCFunction_New(&method, nullptr));
        PyDict_SetItemString(PyModule_GetDict(PyImport_AddModule("__main__")), "f", function.get());
    }
    const std::string result = shown("f");
    run("del f");
    return result;
}

TEST_F(FunctionMetadata, TextsThatAreSignatures) {
    const std::array<std::pair<const char*, const char*>, 14> texts = {{
        {"()", " | "},
        {"(a)", "a | a"},
        {"($self)", " | "},
        {"($module, a, /)", "a | "},
        {"($self, /, a)", "a | a"},
        {"(a, b=1, /, c=None, *, d='x, )', **more)", "a b c | c d"},
        {"(a=(1, [2, {3: ')'}]), b=\"it's\")", "a b | a b"},
        {"(a='\\'', b=1)", "a b | a b"},
        {"(*args, key=None)", " | key"},
        {"(a: int = 3, b : str)", "a b | a b"},
        {"(a,\n  b)", "a b | a b"},
        {"(a, b,)", "a b | a b"},
        {"(  a , b  )", "a b | a b"},
        {"(_x1, *, Y)", "_x1 | _x1 Y"},
    }};
    for (const auto& [text, expected] : texts) {
        EXPECT_EQ(shownOfText(std::string("f") + text + "\n--\n\nText."), expected) << text;
    }
}

TEST_F(FunctionMetadata, TextsThatAreNone) {
    for (const char* text : {"",
                             "f",
                             "f(",
                             "f)",
                             "f(a)",
                             "f(a)\n--\n",
                             "g(a)\n--\n\n",
                             " f(a)\n--\n\n",
                             "ff(a)\n--\n\n",
                             "f (a)\n--\n\n",
                             "f(a\n\n)\n--\n\n",
                             "f(a,,b)\n--\n\n",
                             "f(,)\n--\n\n",
                             "f(1)\n--\n\n",
                             "f(a b)\n--\n\n",
                             "f(a[, b])\n--\n\n",
                             "f(/)\n--\n\n",
                             "f(a, /, b, /)\n--\n\n",
                             "f(*, a, /)\n--\n\n",
                             "f(*, *)\n--\n\n",
                             "f(**k, a)\n--\n\n",
                             "f(**)\n--\n\n",
                             "f(a, $self)\n--\n\n",
                             "f($)\n--\n\n",
                             "f(*, $self)\n--\n\n",
                             "f(a=')\n--\n\n",
                             "f(a=(])\n--\n\n",
                             "f(a=]\n--\n\n",
                             "f(a=\\)\n--\n\n'",
                             "f($self, $type)\n--\n\n",
                             "f(\xC3)\n--\n\n"}) {
        const std::string expected = std::string(text) == "f(a=\\)\n--\n\n'" ? "a | a" : "unknown";
        EXPECT_EQ(shownOfText(text), expected) << text;
    }
}

TEST_F(FunctionMetadata, TextsOfAnySizeAreRead) {
    EXPECT_EQ(shownOfText("f(" + std::string(1'000'000, '(') + ")\n--\n\n"), "unknown");
    EXPECT_EQ(shownOfText("f(a=" + std::string(100'000, '(') + std::string(100'000, ')') + ")\n--\n\n"), "a | a");
    std::string many = "f(a";
    for (int count = 0; count < 100'000; ++count) {
        many += ", a";
    }
    EXPECT_NE(shownOfText(many + ")\n--\n\n"), "unknown");
}

}  // namespace
