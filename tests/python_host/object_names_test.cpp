// What values answer when they are asked themselves.
#include "contextdata/member_names.h"
#include "contextdata/values.h"
#include "host/exceptions.h"
#include "host/i18n.h"
#include "host/interpreter.h"
#include "hosts/python/python_host.h"
#include "tests/python_host/session.h"

namespace {

using namespace session;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::IsSupersetOf;
using ::testing::Not;

using ObjectNames = PythonTest;

TEST_F(ObjectNames, PropertiesAreTheClassesThenTheObjectsOwn) {
    run("class A:\n p = 1\n LIMIT = 2\n def f(self): pass\n @property\n def q(self): trace.append('q')\n"
        "a = A()\na.own = 1\na.p = 2\na._hidden = 3\na.__dict__['two words'] = 4\na.__dict__[5] = 6");
    EXPECT_THAT(call("properties", "a"), ElementsAre("p", "LIMIT", "q", "own"));
    EXPECT_THAT(call("methods", "a"), ElementsAre("f"));
}

TEST_F(ObjectNames, TheListingHookAddsNames) {
    run("class A:\n x = 1\n def f(self): pass\n def __dir__(self): return ['extra', 'f', 'x', '_no', 'a b', 3]\n"
        "a = A()\na.own = 1");
    EXPECT_THAT(call("properties", "a"), ElementsAre("x", "own", "extra"));
}

TEST_F(ObjectNames, TheListingHookAddsToTheClassWhetherOrNotTheObjectHasItAsWell) {
    run("class A:\n p = 1\n def f(self): pass\n def __dir__(self): return ['extra', 'own', 'extra', 'more', 'p', "
        "'_no']\n"
        "a = A()\na.own = 1\nclass B: pass\nb = B()\nb.own = 1");
    const auto namesBehind = [](const char* name) {
        const qxUniqueArray held = value(name);
        return python_host::directoryNamesOf(python_host::unwrap(held.get()));
    };
    EXPECT_THAT(namesBehind("a"), ElementsAre("extra", "own", "more"));
    EXPECT_THAT(namesBehind("b"), IsEmpty());
}

TEST_F(ObjectNames, WhatTheListingHookPrintsIsThrownAway) {
    run("import sys, io\nold = sys.stdout, sys.stderr\nsys.stdout = out = io.StringIO()\nsys.stderr = err = "
        "io.StringIO()\n"
        "class A:\n def __dir__(self): print('noise'); print('noise', file=sys.stderr); return ['extra']\na = A()");
    EXPECT_THAT(call("properties", "a"), ElementsAre("extra"));
    EXPECT_EQ(evalText("out.getvalue() + err.getvalue()"), "");
    EXPECT_EQ(evalText("repr(sys.stdout is out and sys.stderr is err)"), "True");
    run("sys.stdout, sys.stderr = old");
}

TEST_F(ObjectNames, AListingHookThatFailsAddsNothing) {
    run("import sys\n"
        "class A:\n x = 1\n def __dir__(self): raise ValueError\n"
        "class B:\n x = 1\n def __dir__(self): sys.exit(3)\n"
        "class C:\n x = 1\n __dir__ = 3\n"
        "class D:\n x = 1\n def __dir__(self): return 7\n"
        "class E:\n x = 1\n __dir__ = None\n");
    for (const char* object : {"A()", "B()", "C()", "D()", "E()"}) {
        EXPECT_THAT(call("properties", object), ElementsAre("x")) << object;
    }
}

TEST_F(ObjectNames, AnInterruptInTheListingHookPasses) {
    run("class A:\n def __dir__(self): raise KeyboardInterrupt\na = A()");
    EXPECT_THROW(call("properties", "a"), foundation::core::except::InterruptException);
    EXPECT_EQ(PyErr_Occurred(), nullptr);
    std::vector<std::u16string> names;
    const qxUniqueArray held = value("a");
    getOpaqueObjectProperties(held.get(), names);
    EXPECT_TRUE(names.empty());
}

TEST_F(ObjectNames, AnErrorThatWasPendingStaysPending) {
    run("class A:\n def __dir__(self): raise ValueError\na = A()");
    const qxUniqueArray held = value("a");
    const qxArray* inputs[] = {held.get()};
    qxArray* output = nullptr;
    PyErr_SetString(PyExc_KeyError, "pending");
    inCallFcn(1, &output, 1, inputs, "properties");
    const qxUniqueArray answer(output);
    EXPECT_TRUE(PyErr_ExceptionMatches(PyExc_KeyError));
    PyErr_Clear();
}

TEST_F(ObjectNames, ColumnsOfAFrameArePropertiesOfIt) {
    run("import pandas\nframe = pandas.DataFrame({'alpha': [1], 'b c': [2], '_x': [3], 'beta': [4], 5: [6], 'sum': "
        "[7]})\n"
        "numbered = pandas.DataFrame([[1, 2]])\n"
        "series = pandas.Series([1, 2], index=['one', 'two'])\n"
        "levels = pandas.DataFrame([[1, 2]], columns=pandas.MultiIndex.from_tuples([('u', 'x'), ('v', 'y')]))\n"
        "index = frame.columns");
    EXPECT_THAT(call("properties", "frame"), IsSupersetOf({"alpha", "beta", "columns", "shape"}));
    EXPECT_THAT(call("properties", "frame"), Not(Contains("b c")));
    EXPECT_THAT(call("properties", "frame"), Not(Contains("_x")));
    EXPECT_THAT(call("properties", "frame"), Not(Contains("sum")));
    EXPECT_THAT(call("properties", "numbered"), Contains("columns"));
    EXPECT_THAT(call("properties", "series"), IsSupersetOf({"one", "two", "index"}));
    EXPECT_THAT(call("properties", "levels"), IsSupersetOf({"u", "v"}));
    EXPECT_THAT(call("properties", "index"), Contains("dtype"));
}

TEST_F(ObjectNames, AFrameIsNotMadeToListItself) {
    run("import pandas\nfrom pandas.core.accessor import DirNamesMixin\n"
        "frame = pandas.DataFrame({'alpha': [1]})\n"
        "additions = DirNamesMixin._dir_additions\n"
        "DirNamesMixin._dir_additions = lambda self: trace.append('asked') or set()");
    EXPECT_THAT(call("properties", "frame"), Contains("alpha"));
    run("DirNamesMixin._dir_additions = additions");
}

TEST_F(ObjectNames, PropertiesOfAModuleAreItsVariables) {
    run("import types\nmodule = types.ModuleType('m')\n"
        "module.__dict__.update(x=1, f=len, C=int, m=types, _p=2, __getattr__=lambda n: trace.append(n),"
        " __dir__=lambda: trace.append('dir'))");
    EXPECT_THAT(call("properties", "module"), ElementsAre("x"));
}

TEST_F(ObjectNames, PropertiesOfAClassAreThoseOfItsMetaclass) {
    run("class Meta(type):\n meta_value = 1\n def __dir__(cls): trace.append('dir'); return ['no']\n"
        "class A(metaclass=Meta):\n own = 1");
    EXPECT_THAT(call("properties", "A"), ElementsAre("meta_value"));
}

TEST_F(ObjectNames, FieldNamesAreKeysOfPlainDictionariesAndRecords) {
    run("import types\nclass D(dict): pass\nfields = {'a': 1, 'b c': 2, 3: 4}");
    EXPECT_THAT(call("fieldnames", "fields"), ElementsAre("a", "b c"));
    EXPECT_THAT(call("fieldnames", "types.SimpleNamespace(u=1, v=2)"), ElementsAre("u", "v"));
    EXPECT_THAT(call("fieldnames", "D(a=1)"), IsEmpty());
    EXPECT_THAT(call("fieldnames", "3"), IsEmpty());
}

TEST_F(ObjectNames, KeysAreTheTextsThatADictionaryStores) {
    run("import collections\n"
        "class Trap(dict):\n"
        " def __iter__(self): trace.append('iter'); return iter(())\n"
        " def keys(self): trace.append('keys'); return ()\n"
        " def __len__(self): trace.append('len'); return 0\n"
        "class Text(str): pass\n"
        "fields = {'a': 1, 'b c': 2, 3: 4, b'd': 5, Text('e'): 6, '': 7}");
    EXPECT_THAT(call("keys", "fields"), ElementsAre("a", "b c", ""));
    EXPECT_THAT(call("keys", "Trap(x=1)"), ElementsAre("x"));
    EXPECT_THAT(call("keys", "collections.OrderedDict(y=1, x=2)"), ElementsAre("y", "x"));
    EXPECT_THAT(call("keys", "collections.defaultdict(list, z=[])"), ElementsAre("z"));
    EXPECT_THAT(call("keys", "3"), IsEmpty());
    EXPECT_THAT(call("keys", "[1]"), IsEmpty());
}

TEST_F(ObjectNames, KeysOfTablesAreTheirTextLabels) {
    run("import pandas\n"
        "frame = pandas.DataFrame([[1, 2, 3, 4]], columns=['city', 'a b', 7, 'mean'])\n"
        "class Sheet(pandas.DataFrame):\n"
        " @property\n"
        " def columns(self): trace.append('columns')\n"
        " def keys(self): trace.append('keys')\n"
        " def __dir__(self): trace.append('dir')\n"
        "levels = pandas.DataFrame([[1, 2, 3]], columns=[['a', 'a', 'b'], ['x', 'y', 'x']])");
    EXPECT_THAT(call("keys", "frame"), ElementsAre("city", "a b", "mean"));
    EXPECT_THAT(call("keys", "Sheet({'own': [1]})"), ElementsAre("own"));
    EXPECT_THAT(call("keys", "levels"), ElementsAre("a", "b"));
    EXPECT_THAT(call("keys", "pandas.Series([1, 2], index=['u', 'v'])"), ElementsAre("u", "v"));
    EXPECT_THAT(call("keys", "pandas.Series([1, 2])"), IsEmpty());
    EXPECT_THAT(call("keys", "frame.columns"), IsEmpty());
}

TEST_F(ObjectNames, KeysOfStructuredDataAreItsFields) {
    run("import numpy\n"
        "class Own(numpy.ndarray):\n"
        " dtype = property(lambda self: trace.append('dtype'))\n"
        "fields = [('mass', float), ('charge', int)]\n"
        "plain = numpy.zeros(2, fields)");
    EXPECT_THAT(call("keys", "plain"), ElementsAre("mass", "charge"));
    EXPECT_THAT(call("keys", "plain[0]"), ElementsAre("mass", "charge"));
    EXPECT_THAT(call("keys", "plain.view(numpy.recarray)"), ElementsAre("mass", "charge"));
    EXPECT_THAT(call("keys", "plain.view(Own)"), ElementsAre("mass", "charge"));
    EXPECT_THAT(call("keys", "numpy.zeros(2)"), IsEmpty());
    EXPECT_THAT(call("keys", "numpy.void(b'ab')"), IsEmpty());
}

TEST_F(ObjectNames, ClassAndDenotationOfValues) {
    run("import numpy, os, types\nclass A: pass");
    EXPECT_THAT(call("class", "numpy.zeros(3)"), ElementsAre("numpy.ndarray"));
    EXPECT_THAT(call("class", "{}"), ElementsAre("builtins.dict"));
    EXPECT_THAT(call("class", "A()"), ElementsAre("__main__.A"));
    EXPECT_THAT(call("denotes", "A"), ElementsAre("class", "__main__.A"));
    EXPECT_THAT(call("denotes", "numpy.linalg"), ElementsAre("namespace", "numpy.linalg"));
    EXPECT_THAT(call("denotes", "os.path"), ElementsAre("namespace", "posixpath"));
    EXPECT_THAT(call("denotes", "types.ModuleType('unloaded')"), IsEmpty());
    EXPECT_THAT(call("denotes", "A()"), IsEmpty());
}

TEST_F(ObjectNames, MethodsOfBuiltInValuesAreListed) {
    EXPECT_THAT(call("methods", "[]"), IsSupersetOf({"append", "sort"}));
    EXPECT_THAT(call("methods", "''"), IsSupersetOf({"upper", "maketrans"}));
}

TEST_F(ObjectNames, UnknownFunctionsAndInputsFail) {
    EXPECT_THROW(call("size", "1"), foundation::core::except::IException);
    EXPECT_THROW(call("", "1"), foundation::core::except::IException);
    qxArray* output = nullptr;
    EXPECT_THROW(inCallFcn(1, &output, 0, nullptr, "methods"), foundation::core::except::IException);
    EXPECT_EQ(output, nullptr);
}

TEST_F(ObjectNames, NoMethodOfAValueIsCalled) {
    run("class A:\n def size(self): trace.append('size'); return 1.0\na = A()");
    const qxUniqueArray held = value("a");
    EXPECT_THROW(inCallMethodSingleInputSingleOutput(held.get(), "size"), foundation::core::except::IException);
    EXPECT_TRUE(getSizeFromQxArray(held.get()).empty());
}

TEST_F(ObjectNames, ServeTheLibrarysObjectListing) {
    run("class A:\n x = 1\na = A()\na.own = 1");
    std::vector<std::u16string> names;
    const qxUniqueArray held = value("a");
    ZELKIntrospection::getObjectPropertyNames(held.get(), names);
    EXPECT_EQ(names, (std::vector<std::u16string>{u"x", u"own"}));
}

TEST_F(ObjectNames, DocumentedBuiltInsAreFunctionsAndClasses) {
    run("import builtins\nbuiltins.undocumented = lambda: 0\n"
        "class Odd:\n @property\n def __doc__(self): trace.append('doc')\n"
        "builtins.odd = Odd()");
    const auto names = getBuiltinFunctionNames();
    EXPECT_TRUE(names.contains(u"len"));
    EXPECT_TRUE(names.contains(u"print"));
    EXPECT_TRUE(names.contains(u"dict"));
    EXPECT_FALSE(names.contains(u"undocumented"));
    EXPECT_FALSE(names.contains(u"odd"));
    EXPECT_FALSE(names.contains(u"Ellipsis"));
    run("del builtins.undocumented, builtins.odd");
}

}  // namespace
