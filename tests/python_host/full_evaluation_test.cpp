#include "contextdata/workspace.h"
#include "host/error_mode.h"
#include "host/evaluation.h"
#include "host/exceptions.h"
#include "host/i18n.h"
#include "tests/python_host/evaluation.h"

namespace {

using namespace session;

class FullEvaluation : public EvaluationTest {
protected:
    void SetUp() override {
        EvaluationTest::SetUp();
        python_host::setEvaluationPolicy(python_host::EvaluationPolicy::full);
    }

    static bool succeeds(const std::string& text) {
        qxArray* output = nullptr;
        const bool success = EvalcExpSuccessful(fl::i18n::to_ustring(text), 1, &output, false);
        const qxUniqueArray held(output);
        return success;
    }
};

TEST_F(FullEvaluation, RunsWhatTheExpressionSays) {
    run("class A:\n @property\n def p(self): return 7\na = A()\ndef f(x): return x * 2");
    EXPECT_EQ(evaluated("a.p"), "7");
    EXPECT_EQ(evaluated("f(4) + 1"), "9");
    EXPECT_EQ(evaluated("  [x for x in range(3)]"), "[0, 1, 2]");
    EXPECT_EQ(evaluated("f(1);", true), "2");
    EXPECT_EQ(evaluated("f(1);"), "refused");
    EXPECT_EQ(evaluated("'\u00fc'"), "'\u00fc'");
    EXPECT_EQ(found("a.p"), "7");
}

TEST_F(FullEvaluation, GivesNoValueWhenTheExpressionFails) {
    for (const char* text :
         {"1 / 0", "missing", "x = 1", "(", "", "import os", "__import__('sys').exit(3)", "eval('1 +')"}) {
        EXPECT_EQ(evaluated(text), "refused") << text;
    }
    EXPECT_EQ(evaluated(std::string(100'000, '(')), "refused");
    EXPECT_EQ(evaluated(std::string("1\0", 2)), "refused");
}

TEST_F(FullEvaluation, PassesTheInterruptOn) {
    run("def f(): raise KeyboardInterrupt");
    qxArray* output = nullptr;
    EXPECT_THROW(inEvalExp(u"f()", 1, &output, false, inEvaluationSource::introspection),
                 foundation::core::except::InterruptException);
    EXPECT_EQ(output, nullptr);
    EXPECT_EQ(PyErr_Occurred(), nullptr);
}

TEST_F(FullEvaluation, RestoresStreamsAndErrorModeWhenItIsInterrupted) {
    run("import sys\nbefore = sys.stdout, sys.stderr\n"
        "def f():\n sys.stdout = sys.stderr = None\n raise KeyboardInterrupt");
    setErrorMode(static_cast<qxErrorMode>(3));
    EXPECT_THROW(succeeds("f()"), foundation::core::except::InterruptException);
    EXPECT_EQ(getErrorMode(), static_cast<qxErrorMode>(3));
    setErrorMode(static_cast<qxErrorMode>(0));
    EXPECT_EQ(evalNumber("before == (sys.stdout, sys.stderr)"), 1);
}

TEST_F(FullEvaluation, KeepsAnErrorThatWasPending) {
    PyErr_SetString(PyExc_ValueError, "pending");
    qxArray* output = nullptr;
    const auto status = inEvalExp(u"1 / 0", 1, &output, false, inEvaluationSource::introspection);
    EXPECT_NE(status, inExecutionStatus::success);
    EXPECT_NE(PyErr_ExceptionMatches(PyExc_ValueError), 0);
    PyErr_Clear();
}

TEST_F(FullEvaluation, SeesTheWorkspaceThatIsNamed) {
    const Ref locals = eval("{'x': 1}");
    const Ref globals = eval("{'x': 2, 'y': 3}");
    const python_host::CurrentWorkspace workspace(locals.get(), globals.get());
    EXPECT_EQ(evaluated("x + y"), "4");
    EXPECT_EQ(evaluated("trace"), "refused");
}

}  // namespace
