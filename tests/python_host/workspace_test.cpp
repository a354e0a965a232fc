#include "contextdata/workspace.h"

#include <thread>

#include "host/evaluation.h"
#include "host/i18n.h"
#include "tests/python_host/evaluation.h"

namespace {

using namespace session;
using python_host::CurrentWorkspace;

class CurrentVariables : public EvaluationTest {
protected:
    static std::string variable(const std::string& name) {
        const qxSharedArray value = inGetValueFromCurrentWorkspace(name);
        if (!value) {
            return "nothing";
        }
        const Ref text = Ref::steal(PyObject_Repr(python_host::unwrap(value.get())));
        return PyUnicode_AsUTF8(text.get());
    }
};

TEST_F(CurrentVariables, AreThoseOfTheMainModule) {
    run("x = 1");
    EXPECT_EQ(variable("x"), "1");
    EXPECT_EQ(variable("missing"), "nothing");
    EXPECT_EQ(variable(""), "nothing");
    EXPECT_EQ(variable("x.y"), "nothing");
    EXPECT_EQ(variable(std::string("x\0", 2)), "nothing");
    EXPECT_EQ(variable("\xFF"), "nothing");
}

TEST_F(CurrentVariables, AreNoBuiltIns) {
    EXPECT_EQ(variable("len"), "nothing");
    EXPECT_EQ(found("len"), "nothing");
    EXPECT_EQ(found("int.real"), "nothing");
}

TEST_F(CurrentVariables, AreThoseOfTheDictionariesThatAreNamed) {
    run("x = 'main'");
    const Ref locals = eval("{'x': 'local', 'y': 1}");
    const Ref globals = eval("{'x': 'global', 'z': 2}");
    {
        const CurrentWorkspace outer(locals.get(), globals.get());
        EXPECT_EQ(variable("x"), "'local'");
        EXPECT_EQ(variable("y"), "1");
        EXPECT_EQ(variable("z"), "2");
        EXPECT_EQ(variable("trace"), "nothing");
        {
            const CurrentWorkspace inner(globals.get());
            EXPECT_EQ(variable("x"), "'global'");
            EXPECT_EQ(variable("y"), "nothing");
        }
        EXPECT_EQ(variable("x"), "'local'");
    }
    EXPECT_EQ(variable("x"), "'main'");
}

TEST_F(CurrentVariables, OfAnotherThreadAreItsOwn) {
    run("x = 'main'");
    const Ref locals = eval("{'x': 'local'}");
    const CurrentWorkspace workspace(locals.get());
    std::string elsewhere;
    PyThreadState* state = PyEval_SaveThread();
    std::thread([&] {
        const PyGILState_STATE held = PyGILState_Ensure();
        elsewhere = variable("x");
        PyGILState_Release(held);
    }).join();
    PyEval_RestoreThread(state);
    EXPECT_EQ(elsewhere, "'main'");
}

TEST_F(CurrentVariables, OfAMappingOfAUserAreWhatItStores) {
    run("class D(dict):\n def __getitem__(self, key): trace.append(key); return 1\n"
        " def __missing__(self, key): trace.append(key); return 1\n"
        " def __contains__(self, key): trace.append(key); return True\n"
        "class M:\n def __getitem__(self, key): trace.append(key); return 1\n"
        "d, m = D(x=5), M()");
    const Ref dictionary = eval("d");
    const Ref mapping = eval("m");
    {
        const CurrentWorkspace workspace(dictionary.get());
        EXPECT_EQ(variable("x"), "5");
        EXPECT_EQ(variable("y"), "nothing");
    }
    const CurrentWorkspace workspace(mapping.get());
    EXPECT_EQ(variable("x"), "nothing");
}

TEST_F(CurrentVariables, WhileADebuggerStandsAreThoseOfItsFrame) {
    run("import pdb, sys, io\n"
        "x = 'main'\n"
        "space = {'sys': sys, 'g': 'global of the frame'}\n"
        "exec('def f():\\n x = 1\\n pending = 2\\n return sys._getframe()', space)\n"
        "frame = space['f']()\n"
        "debugger = pdb.Pdb(stdin=io.StringIO(), stdout=io.StringIO(), nosigint=True, readrc=False)\n"
        "debugger.reset()\ndebugger.setup(frame, None)\ndebugger.curframe_locals['pending'] = 3");
    python_host::setStoppedDebugger(eval("debugger").get());
    EXPECT_EQ(variable("x"), "1");
    EXPECT_EQ(variable("pending"), "3") << "a change that is not written back yet is lost";
    EXPECT_EQ(variable("g"), "'global of the frame'");
    EXPECT_EQ(variable("trace"), "nothing");
    EXPECT_EQ(found("x"), "1");
    python_host::setStoppedDebugger(nullptr);
    EXPECT_EQ(variable("x"), "'main'");
}

TEST_F(CurrentVariables, KeepOneReferenceForTheirHandle) {
    run("import sys\nx = object()");
    const long before = evalNumber("sys.getrefcount(x)");
    {
        const qxSharedArray value = inGetValueFromCurrentWorkspace("x");
        EXPECT_EQ(evalNumber("sys.getrefcount(x)"), before + 1);
    }
    EXPECT_EQ(evalNumber("sys.getrefcount(x)"), before);
}

TEST_F(CurrentVariables, AreWalkedWithoutEvaluation) {
    run("import types\ns = {'a': {'b': 5}, 'n': types.SimpleNamespace(m=7)}\n"
        "class A: pass\na = A()\na.x = s\nf = lambda: trace.append('f')");
    EXPECT_EQ(found("s"), "{'a': {'b': 5}, 'n': namespace(m=7)}");
    EXPECT_EQ(found("s.a.b"), "5");
    EXPECT_EQ(found("s.n.m"), "7");
    EXPECT_EQ(found("a.x['a']['b']"), "5");
    EXPECT_EQ(found("s.missing"), "nothing");
    EXPECT_EQ(found("s."), "nothing");
    EXPECT_EQ(found("f.x"), "nothing");
    EXPECT_EQ(found("missing.x"), "nothing");
}

TEST_F(CurrentVariables, AreEvaluatedWhereTheWalkEnds) {
    run("import pandas\ns = [{'al': 1}, 'x', {'al': {'k': 2}}]\nd = {'k': [5]}\n"
        "df = pandas.DataFrame({'a': [1]})\n"
        "class A:\n @property\n def prop(self): trace.append('prop'); return 1\nobj = A()\n"
        "def f(): trace.append('f'); return 1");
    EXPECT_EQ(found("s[2]"), "{'al': {'k': 2}}");
    EXPECT_EQ(found("s[2]['al']"), "{'k': 2}");
    EXPECT_EQ(found("d['k']"), "[5]");
    EXPECT_EQ(found("d[\"k\"][0]"), "5");
    EXPECT_EQ(found("df['a']"), "0    1\nName: a, dtype: int64");
    for (const char* text : {"obj.prop", "f()", "f().x", "s[f()]", "d[f()]", "obj.prop.x", "s[2](1)"}) {
        EXPECT_EQ(found(text), "nothing") << text;
    }
}

TEST_F(CurrentVariables, NeedAnInterpreterWhoseLockIsHeld) {
    EXPECT_TRUE(inValidInterpreterAvailable());
    PyThreadState* state = PyEval_SaveThread();
    const bool isAvailable = inValidInterpreterAvailable();
    qxArray* output = nullptr;
    const bool success = EvalcExpSuccessful(u"1", 1, &output, false);
    PyEval_RestoreThread(state);
    EXPECT_FALSE(isAvailable);
    EXPECT_FALSE(success);
    EXPECT_EQ(output, nullptr);
}

}  // namespace
