#include "contextdata/values.h"
#include "host/exceptions.h"
#include "hosts/python/python_host.h"
#include "tests/python_host/session.h"

namespace {

using namespace session;

class PropertyReading : public PythonTest {
protected:
    /// The `repr` of what is read, or "refused".
    static std::string read(const std::string& expression, const std::string& name) {
        const qxUniqueArray holder = value(expression);
        const qxUniqueArray result(qxGetPropertyShared(holder.get(), 0, name.c_str()));
        if (!result) {
            return "refused";
        }
        const Ref text = Ref::steal(PyObject_Repr(python_host::unwrap(result.get())));
        return PyUnicode_AsUTF8(text.get());
    }
};

TEST_F(PropertyReading, ReadsAnInstancesOwnAttributesAndSlots) {
    run("class A:\n __slots__ = ('s', 'unset', '__dict__')\n plain = [1]\na = A()\na.s = 's'\na.x = 1");
    EXPECT_EQ(read("a", "x"), "1");
    EXPECT_EQ(read("a", "s"), "'s'");
    EXPECT_EQ(read("a", "unset"), "refused");
    EXPECT_EQ(read("a", "plain"), "[1]");
    EXPECT_EQ(read("a", "missing"), "refused");
}

TEST_F(PropertyReading, ReadsMethodsWithoutCallingThem) {
    run("class A:\n def f(self): trace.append('f')\n @staticmethod\n def s(): trace.append('s')\na = A()");
    EXPECT_THAT(read("a", "f"), ::testing::StartsWith("<bound method A.f"));
    EXPECT_THAT(read("[]", "append"), ::testing::StartsWith("<built-in method append"));
}

TEST_F(PropertyReading, RefusesWhateverComputes) {
    run("import functools\n"
        "class D:\n def __get__(self, o, t=None): trace.append('get')\n"
        "class DS(D):\n def __set__(self, o, v): pass\n"
        "class A:\n"
        " @property\n def p(self): trace.append('p')\n"
        " @functools.cached_property\n def c(self): trace.append('c'); return 1\n"
        " d = D()\n ds = DS()\n"
        " def __getattr__(self, name): trace.append(name)\n"
        "a = A()\na.__dict__['p'] = 1\na.__dict__['ds'] = 1");
    for (const char* name : {"p", "c", "d", "ds", "missing"}) {
        EXPECT_EQ(read("a", name), "refused") << name;
    }
    run("a.__dict__['c'] = 'cached'");
    EXPECT_EQ(read("a", "c"), "'cached'");
}

TEST_F(PropertyReading, RefusesClassesThatReadInTheirOwnWay) {
    run("class A:\n x = 1\n def __getattribute__(self, name): trace.append(name); return 2\nclass B(A): pass\n"
        "b = B()\nobject.__setattr__(b, 'y', 1)");
    EXPECT_EQ(read("b", "x"), "refused");
    EXPECT_EQ(read("b", "y"), "refused");
}

TEST_F(PropertyReading, ReadsClassesThroughTheirDictionaries) {
    run("import enum\n"
        "class Meta(type):\n"
        " @property\n def p(cls): trace.append('p')\n"
        " def __getattr__(cls, name): trace.append(name)\n"
        "class A(metaclass=Meta):\n"
        " x = 1\n p = 2\n"
        " @staticmethod\n def s(): pass\n"
        " @property\n def q(self): trace.append('q')\n"
        " class Inner: pass\n"
        "class GetMeta(type):\n def __get__(cls, o, t=None): trace.append('get')\n"
        "class Odd(metaclass=GetMeta): pass\n"
        "A.odd = Odd\n"
        "class E(enum.Enum):\n RED = 1");
    EXPECT_EQ(read("A", "x"), "1");
    EXPECT_EQ(read("A", "p"), "refused");
    EXPECT_EQ(read("A", "q"), "refused");
    EXPECT_EQ(read("A", "missing"), "refused");
    EXPECT_EQ(read("A", "odd"), "refused");
    EXPECT_EQ(read("A()", "odd"), "refused");
    EXPECT_EQ(read("A", "Inner"), "<class '__main__.A.Inner'>");
    EXPECT_THAT(read("A", "s"), ::testing::StartsWith("<function A.s"));
    EXPECT_EQ(read("E", "RED"), "<E.RED: 1>");
    EXPECT_EQ(read("E.RED", "name"), "'RED'");
    EXPECT_EQ(read("E.RED", "value"), "1");
}

TEST_F(PropertyReading, ReadsModulesThroughTheirDictionaries) {
    run("import sys, types, math\nmodule = types.ModuleType('m')\nmodule.x = 1\n"
        "module.__getattr__ = lambda name: trace.append(name)\n"
        "class M(types.ModuleType):\n @property\n def p(self): trace.append('p')\n"
        "other = M('n')\nother.__dict__.update(p=1, q=2)");
    EXPECT_EQ(read("module", "x"), "1");
    EXPECT_EQ(read("module", "missing"), "refused");
    EXPECT_EQ(read("math", "pi"), "3.141592653589793");
    EXPECT_EQ(read("other", "p"), "refused");
    EXPECT_EQ(read("other", "q"), "2");
}

TEST_F(PropertyReading, ReadsKnownGettersOfKnownTypes) {
    run("import datetime, numpy\narray = numpy.zeros((2, 3))\n"
        "class Sub(numpy.ndarray):\n def __array_finalize__(self, o): trace.append('finalize')\n"
        "sub = array.view(Sub)\ntrace.clear()\nday = datetime.date(2020, 1, 2)");
    EXPECT_EQ(read("3", "real"), "3");
    EXPECT_EQ(read("2j", "imag"), "2.0");
    EXPECT_EQ(read("array", "shape"), "(2, 3)");
    EXPECT_EQ(read("array", "dtype"), "dtype('float64')");
    EXPECT_EQ(read("array.dtype", "kind"), "'f'");
    EXPECT_EQ(read("numpy.float64(1)", "real"), "1.0");
    EXPECT_EQ(read("day", "year"), "2020");
    EXPECT_EQ(read("sub", "T"), "refused");
}

TEST_F(PropertyReading, RefusesGettersInCThatMayRunAnything) {
    run("import io\n"
        "class Raw(io.RawIOBase):\n"
        " def readable(self): return True\n"
        " @property\n def closed(self): trace.append('closed'); return False\n"
        "reader = io.BufferedReader(Raw())\ntrace.clear()");
    EXPECT_EQ(read("reader", "closed"), "refused");
    run("Raw.closed = False\ndel reader\ntrace.clear()");
}

TEST_F(PropertyReading, ReadsTheAxesOfFrames) {
    run("import pandas\nframe = pandas.DataFrame({'a': [1], 'b': [2]}, index=['row'])\n"
        "series = frame['a']\n"
        "class Frame(pandas.DataFrame): pass\nderived = Frame(frame)");
    EXPECT_EQ(read("frame", "columns"), "Index(['a', 'b'], dtype='object')");
    EXPECT_EQ(read("frame", "index"), "Index(['row'], dtype='object')");
    EXPECT_EQ(read("series", "index"), "Index(['row'], dtype='object')");
    EXPECT_EQ(read("series", "name"), "'a'");
    EXPECT_EQ(read("frame", "values"), "refused");
    EXPECT_EQ(read("frame", "a"), evalText("repr(series)"));
    EXPECT_EQ(read("derived", "columns"), "refused");
}

TEST_F(PropertyReading, ColumnsOfAFrameAreItsAttributesBehindItsMembers) {
    run("import pandas\n"
        "frame = pandas.DataFrame({'height': [1, 2], 'mean': [3, 4], 'two words': [5, 6]})\n"
        "class Sheet(pandas.DataFrame):\n"
        " def __getitem__(self, key): trace.append(key)\n"
        "sheet = Sheet({'height': [1, 2]})");
    EXPECT_EQ(read("frame", "height"), evalText("repr(frame.height)"));
    EXPECT_THAT(read("frame", "mean"), ::testing::StartsWith("<bound method"));
    EXPECT_EQ(read("frame", "depth"), "refused");
    EXPECT_EQ(read("sheet", "height"), "refused");
}

TEST_F(PropertyReading, DoesNotCompareForeignKeys) {
    run("class Number:\n"
        " def __hash__(self): return hash('x')\n"
        " def __eq__(self, other): trace.append('eq'); return True\n"
        "class A: pass\na = A()\na.__dict__[Number()] = 1\na.y = 2\ntrace.clear()");
    EXPECT_EQ(read("a", "x"), "refused");
    EXPECT_EQ(read("a", "y"), "2");
}

TEST_F(PropertyReading, KnowsOneElement) {
    const qxUniqueArray holder = value("1");
    EXPECT_THROW(qxGetPropertyShared(holder.get(), 1, "real"), foundation::core::except::IException);
    EXPECT_FALSE(getSharedProperty(holder.get(), "real", 1));
    EXPECT_TRUE(getSharedProperty(holder.get(), "real", 0));
}

TEST_F(PropertyReading, TheLibrarysHandleOwnsTheValue) {
    run("class A: pass\na = A()\na.x = object()");
    const long before = evalNumber("__import__('sys').getrefcount(a.x)");
    {
        const qxUniqueArray holder = value("a");
        const qxSharedArray shared = getSharedProperty(holder.get(), "x", 0);
        EXPECT_EQ(evalNumber("__import__('sys').getrefcount(a.x)"), before + 1);
    }
    EXPECT_EQ(evalNumber("__import__('sys').getrefcount(a.x)"), before);
}

}  // namespace
