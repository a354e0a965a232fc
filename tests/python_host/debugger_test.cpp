#include "contextdata/resolved_class_id.h"
#include "host/dispatcher.h"
#include "host/interpreter.h"
#include "host/name_resolution.h"
#include "hosts/python/python_host.h"
#include "tests/python_host/session.h"

namespace {

using namespace session;
using ZELKContextData::ResolvedClassID;

class Debugger : public PythonTest {
protected:
    void SetUp() override {
        PythonTest::SetUp();
        // A debugger as it is while it holds the program, without its prompt.
        run("import pdb, sys, io, types\n"
            "space = {'__name__': 'debugged', 'trace': trace}\n"
            "exec(compile('''\n"
            "from collections import OrderedDict as O\n"
            "def inner():\n"
            "    return sys._getframe()\n"
            "def outer():\n"
            "    return inner()\n"
            "import sys\n"
            "''', '/debugged/file.py', 'exec'), space)\n"
            "frame = space['outer']()\n"
            "debugger = pdb.Pdb(stdin=io.StringIO(), stdout=io.StringIO(), nosigint=True, readrc=False)\n"
            "debugger.reset()\n"
            "debugger.setup(frame, None)\n");
        python_host::setStoppedDebugger(eval("debugger").get());
    }
    void TearDown() override {
        python_host::setStoppedDebugger(nullptr);
        PythonTest::TearDown();
    }
};

TEST_F(Debugger, FocusIsTheFrameAtWhichItStands) {
    ASSERT_TRUE(IInterpreter::GetInterpreterBridge()->isDebuggerStopped());
    const ResolvedClassID::DebuggerFocus focus = ResolvedClassID::GetDebuggerFocus();
    EXPECT_EQ(focus.fileName, u"/debugged/file.py");
    EXPECT_EQ(focus.focusPosition1, evalNumber("frame.f_lineno"));
    EXPECT_EQ(focus.focusPosition2, 0);
}

TEST_F(Debugger, FocusMovesWithTheDebugger) {
    run("frames = []\n"
        "def here(): frames.append(sys._getframe()); debugger.curframe = frames[-1]\n"
        "here()");
    EXPECT_EQ(ResolvedClassID::GetDebuggerFocus().fileName, u"<string>");
    run("debugger.curframe = frame");
    EXPECT_EQ(ResolvedClassID::GetDebuggerFocus().fileName, u"/debugged/file.py");
}

TEST_F(Debugger, AskingLosesNoPendingAssignment) {
    run("import sys\n"
        "def debugged():\n"
        " x = 1\n"
        " frame = sys._getframe()\n"
        " debugger.curframe = frame\n"
        " variables = frame.f_locals\n"
        " variables['x'] = 2\n"
        " ask()\n"
        " return variables['x']\n");
    static PyMethodDef definition = {"ask",
                                     [](PyObject*, PyObject*) -> PyObject* {
                                         ResolvedClassID::GetDebuggerFocus();
                                         Dispatcher::getDispatcher().GetCurrentlyExecutingFunctionScope();
                                         Py_RETURN_NONE;
                                     },
                                     METH_NOARGS, nullptr};
    const Ref ask = Ref::steal(PyCFunction_New(&definition, nullptr));
    PyObject_SetAttrString(eval("__import__('__main__')").get(), "ask", ask.get());
    EXPECT_EQ(evalNumber("debugged()"), 2);
}

TEST_F(Debugger, NamesOfCodeWithoutAFileAreThoseOfItsFrame) {
    FunctionScope* scope = Dispatcher::getDispatcher().GetCurrentlyExecutingFunctionScope();
    ASSERT_NE(scope, nullptr);
    EXPECT_EQ(zelk::nameresolution::omResolveAnyClass("O", scope), "collections.OrderedDict");
    EXPECT_EQ(ResolvedClassID(u"", u"O").getComponentQualifiedName(), u"collections.OrderedDict");
}

TEST_F(Debugger, WithoutOneThereIsNoFocus) {
    python_host::setStoppedDebugger(nullptr);
    EXPECT_FALSE(IInterpreter::GetInterpreterBridge()->isDebuggerStopped());
    EXPECT_EQ(ResolvedClassID::GetDebuggerFocus().fileName, u"");
    EXPECT_EQ(Dispatcher::getDispatcher().GetCurrentlyExecutingFunctionScope(), nullptr);
}

TEST_F(Debugger, OneWithoutAFrameHoldsNothing) {
    run("debugger.curframe = None");
    EXPECT_FALSE(IInterpreter::GetInterpreterBridge()->isDebuggerStopped());
}

TEST_F(Debugger, ItsOwnAttributesAreNotAsked) {
    run("class Hostile(pdb.Pdb):\n def __getattribute__(self, name): trace.append(name)\n"
        "hostile = Hostile.__new__(Hostile)\n"
        "object.__getattribute__(hostile, '__dict__')['curframe'] = frame\ntrace.clear()");
    python_host::setStoppedDebugger(eval("hostile").get());
    EXPECT_EQ(ResolvedClassID::GetDebuggerFocus().fileName, u"/debugged/file.py");
}

}  // namespace
