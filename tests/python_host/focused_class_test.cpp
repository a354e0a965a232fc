// The class whose method is stopped in the debugger.
#include "hosts/python/python_host.h"
#include "tests/python_host/session.h"

namespace {

using namespace session;

class FocusedClass : public PythonTest {
protected:
    void SetUp() override {
        PythonTest::SetUp();
        // A debugger as it is while it holds the program at a frame, without its prompt.
        run("import pdb, sys, io, functools\n"
            "class Debugger(pdb.Pdb):\n"
            " def hold(self, frame):\n"
            "  self.reset()\n"
            "  self.setup(frame, None)\n"
            "debugger = Debugger(stdin=io.StringIO(), stdout=io.StringIO(), nosigint=True, readrc=False)\n"
            "def here(): return sys._getframe(1)\n");
        python_host::setStoppedDebugger(eval("debugger").get());
    }
    void TearDown() override {
        python_host::setStoppedDebugger(nullptr);
        PythonTest::TearDown();
    }

    /// The class in focus when the debugger holds the frame that an expression gives.
    static std::string classAt(const std::string& frame) {
        run("debugger.hold(" + frame + ")");
        return python_host::classInFocus().c_str();
    }
};

TEST_F(FocusedClass, IsTheClassThatDeclaresTheMethod) {
    run("class Base:\n"
        " def m(self): return here()\n"
        " def n(self): return here()\n"
        "class Derived(Base):\n"
        " def n(self): return super().n()\n"
        " def own(self): return here()\n");
    EXPECT_EQ(classAt("Base().m()"), "__main__.Base");
    EXPECT_EQ(classAt("Derived().m()"), "__main__.Base");
    EXPECT_EQ(classAt("Derived().n()"), "__main__.Base");
    EXPECT_EQ(classAt("Derived().own()"), "__main__.Derived");
}

TEST_F(FocusedClass, InADiamondIsTheOneWhoseMethodRuns) {
    run("class Root:\n def m(self): return [here()]\n"
        "class Left(Root):\n def m(self): return super().m() + [here()]\n"
        "class Right(Root):\n def m(self): return super().m() + [here()]\n"
        "class Leaf(Left, Right):\n def m(self): return super().m() + [here()]\n"
        "frames = Leaf().m()");
    EXPECT_EQ(classAt("frames[0]"), "__main__.Root");
    EXPECT_EQ(classAt("frames[1]"), "__main__.Right");
    EXPECT_EQ(classAt("frames[2]"), "__main__.Left");
    EXPECT_EQ(classAt("frames[3]"), "__main__.Leaf");
}

TEST_F(FocusedClass, IsFoundForMethodsOfClassesAndMetaclasses) {
    run("class Meta(type):\n def m(cls): return here()\n"
        "class A(metaclass=Meta):\n"
        " @classmethod\n def c(cls): return here()\n"
        " def __new__(cls, *args): return here()\n"
        "class B(A):\n"
        " @classmethod\n def c(cls): return super().c()\n");
    EXPECT_EQ(classAt("A.c()"), "__main__.A");
    EXPECT_EQ(classAt("B.c()"), "__main__.A");
    EXPECT_EQ(classAt("A()"), "__main__.A");
    EXPECT_EQ(classAt("B(1)"), "__main__.A");
    EXPECT_EQ(classAt("A.m()"), "__main__.Meta");
}

TEST_F(FocusedClass, IsFoundForStaticMethodsByTheirName) {
    run("class A:\n"
        " @staticmethod\n def s(): return here()\n"
        " @staticmethod\n def t(x): return here()\n"
        " class Inner:\n"
        "  @staticmethod\n  def s(): return here()\n"
        "class B(A): pass\n");
    EXPECT_EQ(classAt("A.s()"), "__main__.A");
    EXPECT_EQ(classAt("B.s()"), "__main__.A");
    EXPECT_EQ(classAt("A.t(1)"), "__main__.A");
    EXPECT_EQ(classAt("A.t(A)"), "__main__.A");
    EXPECT_EQ(classAt("A.Inner.s()"), "__main__.A.Inner");
}

TEST_F(FocusedClass, IsFoundForAccessors) {
    run("frames = []\n"
        "class A:\n"
        " @property\n def p(self): frames.append(here())\n"
        " @p.setter\n def p(self, value): frames.append(here())\n"
        " @p.deleter\n def p(self): frames.append(here())\n"
        " @functools.cached_property\n def c(self): frames.append(here())\n"
        " @classmethod\n @property\n def k(cls): frames.append(here())\n"
        "a = A()\na.p\na.p = 1\ndel a.p\na.c\nA.k");
    for (int index = 0; index < 5; ++index) {
        EXPECT_EQ(classAt("frames[" + std::to_string(index) + "]"), "__main__.A") << index;
    }
}

TEST_F(FocusedClass, IsFoundWhateverTheArgumentsAreCalled) {
    run("class A:\n"
        " def plain(this): return here()\n"
        " def anything(*all, key=1, **rest): return here()\n"
        " def closed(self): inner = lambda: self; return here()\n"
        " def lost(self):\n  self = 3\n  return here()\n"
        " def gone(self):\n  del self\n  return here()\n"
        " def generated(self): yield here()\n");
    EXPECT_EQ(classAt("A().plain()"), "__main__.A");
    EXPECT_EQ(classAt("A().anything()"), "__main__.A");
    EXPECT_EQ(classAt("A().closed()"), "__main__.A");
    EXPECT_EQ(classAt("A().lost()"), "__main__.A");
    EXPECT_EQ(classAt("A().gone()"), "__main__.A");
    EXPECT_EQ(classAt("next(A().generated())"), "__main__.A");
    EXPECT_EQ(classAt("A.anything()"), "__main__.A");
}

TEST_F(FocusedClass, OfCodeWithinAMethodIsThatOfTheMethod) {
    run("class A:\n"
        " def comprehension(self): return [here() for x in [1]][0]\n"
        " def generator(self): return next(here() for x in [1])\n"
        " def anonymous(self): return (lambda: here())()\n"
        " def nested(self):\n"
        "  def inner():\n   return (lambda x: [here() for y in [1]])(1)[0]\n"
        "  return inner()\n"
        " @staticmethod\n def still():\n  def inner(x): return here()\n  return inner(3)\n"
        " @property\n def p(self): return (lambda: here())()\n"
        " @functools.lru_cache\n def cached(self): return (lambda: here())()\n");
    for (const char* call : {"comprehension()", "generator()", "anonymous()", "nested()", "still()", "p", "cached()"}) {
        EXPECT_EQ(classAt(std::string("A().") + call), "__main__.A") << call;
    }
}

TEST_F(FocusedClass, OfAMethodOfALocalClassIsTheLocalClass) {
    run("class A:\n"
        " def m(self):\n"
        "  class Local:\n"
        "   def n(self): return here()\n"
        "   @staticmethod\n   def s(): return here()\n"
        "  return Local\n"
        "Local = A().m()");
    EXPECT_EQ(classAt("Local().n()"), nameOfClass("Local"));
    EXPECT_EQ(classAt("Local.s()"), "") << "the method is not one of the class around";
}

TEST_F(FocusedClass, OfADecoratedMethodIsTheClassThatDeclaresIt) {
    run("def decorated(function):\n"
        " @functools.wraps(function)\n"
        " def wrapper(*args): return function(*args)\n"
        " return wrapper\n"
        "class A:\n"
        " @decorated\n def m(self): return here()\n"
        " @functools.lru_cache\n def cached(self): return here()\n"
        " @staticmethod\n @decorated\n def s(): return here()\n"
        "class B:\n"
        " m = decorated(A.m)\n"
        "frames = []\n"
        "def around(function):\n"
        " def wrapper(self): frames.append(sys._getframe())\n"
        " return wrapper\n"
        "class C:\n @around\n def m(self): pass\n"
        "C().m()");
    EXPECT_EQ(classAt("A().m()"), "__main__.A");
    EXPECT_EQ(classAt("A().cached()"), "__main__.A");
    EXPECT_EQ(classAt("A.s()"), "__main__.A");
    EXPECT_EQ(classAt("frames[0]"), "__main__.C");
}

TEST_F(FocusedClass, OfAnInheritedMethodIsNotTheClassThatWrapsIt) {
    run("class A:\n def m(self): return here()\n"
        "class B(A):\n"
        " @functools.wraps(A.m)\n def m(self): return super().m()\n");
    EXPECT_EQ(classAt("B().m()"), "__main__.A");
}

TEST_F(FocusedClass, AWrapperThatWrapsItselfEndsTheSearch) {
    run("class A:\n @staticmethod\n def s(x): pass\n"
        "def loop(): pass\nloop.__wrapped__ = loop\nA.loop = loop\n"
        "def free(x): return here()\n");
    EXPECT_EQ(classAt("free(A())"), "");
}

TEST_F(FocusedClass, OfCodeThatIsNoMethodIsNone) {
    run("def free(): return here()\n"
        "def taking(x): return here()\n"
        "class A:\n"
        " frame = sys._getframe()\n"
        " class Inner:\n  frame = sys._getframe()\n"
        " frames = [here() for x in [1]]\n");
    EXPECT_EQ(classAt("free()"), "");
    EXPECT_EQ(classAt("taking(A())"), "");
    EXPECT_EQ(classAt("(lambda: here())()"), "");
    EXPECT_EQ(classAt("A.frame"), "");
    EXPECT_EQ(classAt("A.Inner.frame"), "");
    EXPECT_EQ(classAt("A.frames[0]"), "");
    EXPECT_EQ(classAt("sys._getframe()"), "");
}

TEST_F(FocusedClass, ANameAloneProvesNothing) {
    run("class A:\n @staticmethod\n def s(): return here()\n"
        "old = A.s\n"
        "class A:\n @staticmethod\n def s(): pass\n"
        "def pretender(): return here()\n"
        "def named(name): return pretender.__code__.replace(co_qualname=name)\n"
        "import types\n"
        "def call(name): return types.FunctionType(named(name), globals())()\n");
    EXPECT_EQ(classAt("old()"), "");
    for (const char* name : {"A.s", "A.s.<locals>.x", "A.", ".", "A.s.<locals>", "A.s.<locals>.", "A..s", ".<locals>.",
                             "A.s.<locals>.<locals>.x", "", "\\udc80.s", "trace.append", "sys.exit"}) {
        EXPECT_EQ(classAt(std::string("call('") + name + "')"), "") << name;
    }
}

TEST_F(FocusedClass, AReplacedClassIsKnownByTheObject) {
    run("class A:\n def m(self): return here()\n"
        "old = A()\n"
        "class A:\n def m(self): return here()\n");
    EXPECT_EQ(classAt("old.m()"), nameOfClass("type(old)"));
    EXPECT_EQ(classAt("A().m()"), "__main__.A");
    EXPECT_NE(nameOfClass("type(old)"), "__main__.A");
}

TEST_F(FocusedClass, AMethodPutIntoAClassLaterIsItsMethod) {
    run("class A: pass\ndef f(self): return here()\nA.m = f\nB = type('B', (), {'n': lambda self: here()})\n"
        "B.__module__ = '__main__'");
    EXPECT_EQ(classAt("A().m()"), "__main__.A");
    EXPECT_EQ(classAt("B().n()"), "__main__.B");
}

TEST_F(FocusedClass, PrivateMethodsAreFoundLikeOthers) {
    run("class _A:\n"
        " def __m(self): return here()\n"
        " @staticmethod\n def __s(): return here()\n"
        " def m(self): return self.__m()\n"
        " def s(self): return self.__s()\n"
        " def __len__(self): frames.append(here()); return 0\n"
        "frames = []\nlen(_A())");
    EXPECT_EQ(classAt("_A().m()"), "__main__._A");
    EXPECT_EQ(classAt("_A().s()"), "__main__._A");
    EXPECT_EQ(classAt("frames[0]"), "__main__._A");
}

TEST_F(FocusedClass, MovesWithTheDebugger) {
    run("class A:\n def m(self): return B().m()\n"
        "class B:\n def m(self): debugger.hold(sys._getframe()); return answer()\n");
    static Names answers;
    answers.clear();
    static PyMethodDef definition = {"answer",
                                     [](PyObject*, PyObject*) -> PyObject* {
                                         answers.emplace_back(python_host::classInFocus().c_str());
                                         run("debugger.do_up('')");
                                         answers.emplace_back(python_host::classInFocus().c_str());
                                         run("debugger.do_down('')");
                                         answers.emplace_back(python_host::classInFocus().c_str());
                                         Py_RETURN_NONE;
                                     },
                                     METH_NOARGS, nullptr};
    const Ref answer = Ref::steal(PyCFunction_New(&definition, nullptr));
    PyObject_SetAttrString(eval("__import__('__main__')").get(), "answer", answer.get());
    run("A().m()");
    EXPECT_THAT(answers, ::testing::ElementsAre("__main__.B", "__main__.A", "__main__.B"));
}

TEST_F(FocusedClass, AskingLosesNoPendingAssignment) {
    run("class A:\n"
        " def m(self):\n"
        "  x = 1\n"
        "  frame = sys._getframe()\n"
        "  debugger.hold(frame)\n"
        "  debugger.curframe_locals['x'] = 2\n"
        "  ask()\n"
        "  return debugger.curframe_locals['x']\n");
    static std::string answer;
    static PyMethodDef definition = {"ask",
                                     [](PyObject*, PyObject*) -> PyObject* {
                                         answer = python_host::classInFocus().c_str();
                                         Py_RETURN_NONE;
                                     },
                                     METH_NOARGS, nullptr};
    const Ref ask = Ref::steal(PyCFunction_New(&definition, nullptr));
    PyObject_SetAttrString(eval("__import__('__main__')").get(), "ask", ask.get());
    EXPECT_EQ(evalNumber("A().m()"), 2);
    EXPECT_EQ(answer, "__main__.A");
}

TEST_F(FocusedClass, NobodysCodeRuns) {
    run("class Meta(type):\n"
        " def __getattribute__(cls, name): trace.append(name); return super().__getattribute__(name)\n"
        " def __eq__(cls, other): trace.append('eq'); return True\n"
        " def __hash__(cls): trace.append('hash'); return 0\n"
        " def __subclasscheck__(cls, other): trace.append('subclass'); return True\n"
        " __mro__ = property(lambda cls: trace.append('mro'))\n"
        "class Descriptor:\n"
        " def __get__(self, object, owner=None): trace.append('get')\n"
        " def __getattribute__(self, name): trace.append(name)\n"
        " def __eq__(self, other): trace.append('eq'); return True\n"
        "class Wrapper:\n"
        " @property\n def __wrapped__(self): trace.append('wrapped')\n"
        " def __call__(self): trace.append('call')\n"
        "class A(metaclass=Meta):\n"
        " d = Descriptor()\n"
        " w = Wrapper()\n"
        " def __getattribute__(self, name): trace.append(name); return object.__getattribute__(self, name)\n"
        " __class__ = property(lambda self: trace.append('class'))\n"
        " def m(self): return here()\n"
        "frame = A().m()\n"
        "debugger.hold(frame)\n"
        "trace.clear()\n");
    EXPECT_STREQ(python_host::classInFocus().c_str(), "__main__.A");
}

TEST_F(FocusedClass, VariablesOfAUsersMakingAreNotAsked) {
    run("class Variables:\n"
        " def __getitem__(self, name): trace.append(name)\n"
        " def get(self, name): trace.append(name)\n"
        "class A:\n"
        " def m(self): return here()\n"
        "debugger.hold(A().m())\n"
        "debugger.curframe_locals = Variables()\n"
        "trace.clear()");
    EXPECT_STREQ(python_host::classInFocus().c_str(), "__main__.A") << "the name is still there to go by";
    run("del debugger.curframe_locals");
    EXPECT_STREQ(python_host::classInFocus().c_str(), "__main__.A");
}

TEST_F(FocusedClass, WithoutADebuggerThereIsNone) {
    run("class A:\n def m(self): return here()\ndebugger.hold(A().m())");
    ASSERT_STREQ(python_host::classInFocus().c_str(), "__main__.A");
    run("debugger.curframe = None");
    EXPECT_TRUE(python_host::classInFocus().isEmpty());
    python_host::setStoppedDebugger(nullptr);
    EXPECT_TRUE(python_host::classInFocus().isEmpty());
}

TEST_F(FocusedClass, AskingKeepsAPendingError) {
    run("class A:\n def m(self): return here()\ndebugger.hold(A().m())");
    PyErr_SetString(PyExc_ValueError, "pending");
    EXPECT_STREQ(python_host::classInFocus().c_str(), "__main__.A");
    EXPECT_TRUE(PyErr_ExceptionMatches(PyExc_ValueError));
    PyErr_Clear();
}

}  // namespace
