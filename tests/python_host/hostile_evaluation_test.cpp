// What a person's own classes do when somebody reads them carelessly: each of these would leave a trace.
#include "host/evaluation.h"
#include "tests/python_host/evaluation.h"

namespace {

using namespace session;

using HostileEvaluation = EvaluationTest;

TEST_F(HostileEvaluation, RunsNoProperty) {
    run("class A:\n @property\n def p(self): trace.append('p'); return 1\n"
        " def __getattr__(self, name): trace.append(name); return 1\n"
        "class B:\n def __getattribute__(self, name): trace.append(name); return 1\n"
        "a, b = A(), B()");
    for (const char* text : {"a.p", "a.missing", "b.x", "b.__class__", "a.p.x", "a.p[0]"}) {
        EXPECT_EQ(evaluated(text), "refused") << text;
        EXPECT_EQ(found(text), "nothing") << text;
    }
}

TEST_F(HostileEvaluation, AsksNoContainerOfAUser) {
    run("import collections, numpy\n"
        "class L(list):\n def __getitem__(self, key): trace.append('list'); return 1\n"
        "class D(dict):\n def __getitem__(self, key): trace.append('dict'); return 1\n"
        " def __missing__(self, key): trace.append('missing'); return 1\n"
        "class T(tuple):\n def __getitem__(self, key): trace.append('tuple'); return 1\n"
        "class S(str):\n def __getitem__(self, key): trace.append('str'); return 1\n"
        "class O:\n def __getitem__(self, key): trace.append('object'); return 1\n"
        "class C:\n def __class_getitem__(cls, key): trace.append('class'); return 1\n"
        "class N(numpy.ndarray):\n def __array_finalize__(self, other): trace.append('finalize')\n"
        " def __getitem__(self, key): trace.append('array'); return 1\n"
        "l, d, t, s, o = L([1]), D({0: 1}), T((1,)), S('a'), O()\n"
        "n = numpy.zeros(3).view(N)\ncounted = collections.defaultdict(lambda: trace.append('made'))\n"
        "chain = collections.ChainMap(d)\ntrace.clear()");
    for (const char* text : {"l[0]", "d[0]", "d['x']", "t[0]", "s[0]", "o[0]", "C[0]", "n[0]", "n[:1]", "n.T",
                             "counted['x']", "counted[0]", "chain[0]", "list[int]", "list[0]"}) {
        EXPECT_EQ(evaluated(text), "refused") << text;
        EXPECT_EQ(found(text), "nothing") << text;
    }
    EXPECT_EQ(evalNumber("len(counted)"), 0);
}

TEST_F(HostileEvaluation, ComparesNoForeignKey) {
    run("class K:\n"
        " def __init__(self, like): self.like = like\n"
        " def __hash__(self): return hash(self.like)\n"
        " def __eq__(self, other): trace.append('eq'); return True\n"
        "class S(str):\n def __hash__(self): trace.append('hash'); return str.__hash__(self)\n"
        " def __eq__(self, other): trace.append('str'); return True\n"
        "foreign = {K('x'): 1, K(5): 2, K(None): 3, K((1, 2)): 4, S('y'): 5, (K(7), 1): 6}\n"
        "mixed = {K('z'): 1, 'w': 2}\ntuples = {(K(1), 2): 1}\ntrace.clear()");
    for (const char* text : {"foreign['x']", "foreign[5]", "foreign[None]", "foreign[1, 2]", "foreign['y']",
                             "foreign[7, 1]", "mixed['z']", "tuples[1, 2]"}) {
        EXPECT_EQ(evaluated(text), "refused") << text;
    }
    EXPECT_EQ(evaluated("mixed['w']"), "2");
    run("globals()[K('name')] = 1\ntrace.clear()");
    EXPECT_EQ(evaluated("name"), "refused");
    EXPECT_EQ(found("name"), "nothing");
    run("for key in list(globals()):\n if type(key) is K: del globals()[key]\nfor key in list(foreign): pass\n"
        "del key\ntrace.clear()");
}

TEST_F(HostileEvaluation, WalksNoHugeDictionaryOfMixedKeys) {
    run("d = dict.fromkeys(range(100001), 'x')\nt = {str(i): i for i in range(200000)}");
    EXPECT_EQ(evaluated("d[5]"), "refused");
    EXPECT_EQ(evaluated("t['150000']"), "150000");
}

TEST_F(HostileEvaluation, RunsNoGetterInCThatMayRunAnything) {
    run("import io\n"
        "class Raw(io.RawIOBase):\n"
        " def readable(self): return True\n"
        " @property\n def closed(self): trace.append('closed'); return False\n"
        "reader = io.BufferedReader(Raw())\ntrace.clear()");
    EXPECT_EQ(evaluated("reader.closed"), "refused");
    EXPECT_EQ(found("reader.closed"), "nothing");
    run("Raw.closed = False\ndel reader\ntrace.clear()");
}

TEST_F(HostileEvaluation, AsksNoProxyNoMetaclassAndNoModule) {
    run("import weakref, types, unittest.mock\n"
        "class Meta(type):\n def __getattribute__(cls, name): trace.append(name); return 1\n"
        " def __getitem__(cls, key): trace.append('item'); return 1\n"
        " def __instancecheck__(cls, o): trace.append('check'); return True\n"
        "class A(metaclass=Meta):\n x = 1\n"
        "class Liar:\n @property\n def __class__(self): trace.append('class'); return dict\n"
        " def __getitem__(self, key): trace.append('item'); return 1\n"
        "class Held:\n x = 1\nheld = Held()\nproxy = weakref.proxy(held)\nliar = Liar()\n"
        "module = types.ModuleType('m')\nmodule.__getattr__ = lambda name: trace.append(name)\n"
        "mock = unittest.mock.Mock()\ntrace.clear()");
    for (const char* text : {"A.x", "A[0]", "proxy.x", "liar['k']", "module.missing", "mock.anything"}) {
        EXPECT_EQ(evaluated(text), "refused") << text;
    }
    run("del module\nunittest = None");
}

TEST_F(HostileEvaluation, ImportsNothing) {
    run("import sys, os\nimport importlib.util\n"
        "spec = importlib.util.find_spec('colorsys')\n"
        "loader = importlib.util.LazyLoader(spec.loader)\nspec.loader = loader\n"
        "lazy = importlib.util.module_from_spec(spec)\nsys.modules.pop('colorsys', None)\nloader.exec_module(lazy)");
    EXPECT_EQ(evaluated("lazy.rgb_to_hsv"), "refused");
    EXPECT_EQ(evaluated("wave.open"), "refused");
    EXPECT_EQ(evalText("type(lazy).__name__"), "_LazyModule");
    EXPECT_EQ(evalNumber("'wave' in sys.modules"), 0);
}

TEST_F(HostileEvaluation, MakesNoScalarOfAUsersType) {
    run("import numpy\n"
        "class V(numpy.void):\n def __new__(cls, *a): trace.append('new'); return numpy.void.__new__(cls, *a)\n"
        " def __array_finalize__(self, o): trace.append('finalize')\n"
        " def __getitem__(self, key): trace.append('item')\n"
        "v = numpy.zeros(2, dtype=numpy.dtype((V, [('a', 'i4')])))\ntrace.clear()");
    EXPECT_EQ(evaluated("v[0]"), "refused");
    EXPECT_EQ(evaluated("v[0]['a']"), "refused");
}

TEST_F(HostileEvaluation, AsksNoFrameThatAUserHasAHandIn) {
    run("import pandas, sys\n"
        "class Frame(pandas.DataFrame):\n def __getitem__(self, key): trace.append('item')\n"
        "class Key(str):\n def __hash__(self): return str.__hash__(self)\n"
        " def __eq__(self, other): trace.append('eq'); return True\n"
        "derived = Frame({'a': [1]})\nkeyed = pandas.DataFrame({Key('a'): [1]})\n"
        "plain = pandas.DataFrame({'a': [1]})\ndouble = pandas.DataFrame([[1, 2]], columns=['a', 'a'])\n"
        "numbered = pandas.DataFrame({1: [1]})\ntrace.clear()");
    for (const char* text : {"derived['a']", "keyed['a']", "double['a']", "numbered[1]", "numbered['a']"}) {
        EXPECT_EQ(evaluated(text), "refused") << text;
    }
    run("old = pandas.DataFrame.__getitem__\npandas.DataFrame.__getitem__ = lambda self, key: trace.append('patched')");
    EXPECT_EQ(evaluated("plain['a']"), "refused");
    run("pandas.DataFrame.__getitem__ = old\nsys.setprofile(lambda *a: trace.append('profile'))");
    EXPECT_EQ(evaluated("plain['a']"), "refused");
    run("sys.setprofile(None)\ntrace.clear()");
    EXPECT_NE(evaluated("plain['a']"), "refused");
}

TEST_F(HostileEvaluation, CollectsNoGarbage) {
    run("import gc\ngc.disable()\n"
        "class A:\n def __del__(self): trace.append('del')\n"
        "a = A()\na.self = a\ndel a\nold = gc.get_threshold()\ngc.set_threshold(1)");
    qxArray* output = nullptr;
    PyGC_Enable();
    inEvalExp(u"[[], [], [], [], []]", 1, &output, false, inEvaluationSource::introspection);
    const bool isStillOn = PyGC_Disable() != 0;
    const qxUniqueArray held(output);
    EXPECT_TRUE(held);
    EXPECT_TRUE(isStillOn);
    EXPECT_EQ(evalText("repr(trace)"), "[]");
    EXPECT_EQ(evaluated("[1]"), "[1]");
    EXPECT_EQ(PyGC_IsEnabled(), 0);
    run("gc.set_threshold(*old)\ngc.enable()\ngc.collect()");
    EXPECT_EQ(evalText("repr(trace)"), "['del']") << "there was nothing to collect";
    run("trace.clear()");
}

}  // namespace
