#include "host/streams.h"

#include <boost/make_shared.hpp>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>

#include "contextdata/workspace.h"
#include "host/i18n.h"
#include "tests/python_host/evaluation.h"

namespace {

using namespace session;
using python_host::EvaluationPolicy;
using Sink = boost::shared_ptr<OutputCapture>;

class Streams : public EvaluationTest {
protected:
    /// What code sends to the standard output while it is diverted.
    static std::string captured(const std::function<void()>& print, OutputStream& stream) {
        const Sink sink = boost::make_shared<OutputCapture>();
        stream.push(sink);
        print();
        stream.flush();
        stream.pop();
        return fl::i18n::to_string(sink->getText());
    }
    static std::string captured(const std::string& code) {
        return captured([&] { run(code); }, OutputStream::standardOutput());
    }
    static bool areTheSame(int first, int second) {
        struct stat one {};
        struct stat other {};
        return fstat(first, &one) == 0 && fstat(second, &other) == 0 && one.st_ino == other.st_ino &&
               one.st_dev == other.st_dev;
    }
    static void useFullPolicy() { python_host::setEvaluationPolicy(EvaluationPolicy::full); }
};

TEST_F(Streams, CatchWhatPythonPrints) {
    run("import sys\nbefore = sys.stdout, sys.stderr");
    EXPECT_EQ(captured("print('sch\u00f6n', 1)"), "sch\u00f6n 1\n");
    EXPECT_EQ(captured([] { run("print('error', file=sys.stderr)"); }, OutputStream::standardError()), "error\n");
    EXPECT_EQ(evalNumber("before == (sys.stdout, sys.stderr)"), 1);
}

TEST_F(Streams, AnswerWhatPrintingCodeAsks) {
    run("import io, sys");
    EXPECT_EQ(captured("s = sys.stdout\n"
                       "assert s.write('ab') == 2 and s.flush() is None and not s.isatty() and s.writable()\n"
                       "assert s.encoding == 'utf-8' and not s.closed and not s.readable()\n"
                       "s.writelines(['c', 'd'])\n"
                       "try: s.fileno()\n"
                       "except io.UnsupportedOperation: s.write('!')\n"
                       "try: s.write(b'x')\n"
                       "except TypeError: s.write('?')\n"
                       "try: s.writelines([1])\n"
                       "except TypeError: s.write('.')\n"
                       "try: type(s)()\n"
                       "except TypeError: s.write(';')"),
              "abcd!?.;");
}

TEST_F(Streams, GiveWhatIsNestedToTheTopmostSink) {
    std::string inner;
    const std::string outer = captured(
        [&] {
            run("print('before')");
            inner = captured("print('within')");
            run("print('after')");
        },
        OutputStream::standardOutput());
    EXPECT_EQ(inner, "within\n");
    EXPECT_EQ(outer, "before\nafter\n");
}

TEST_F(Streams, AreRestoredWhateverStandsThereMeanwhile) {
    run("import sys, io\nbefore = sys.stdout\nown = io.StringIO()\n"
        "class Loud(io.StringIO):\n def __del__(self): print('farewell')");
    EXPECT_EQ(captured("sys.stdout = own\nprint('kept')"), "");
    EXPECT_EQ(evalNumber("sys.stdout is before"), 1);
    EXPECT_EQ(evalText("own.getvalue()"), "kept\n");
    EXPECT_EQ(captured("del sys.stdout"), "");
    EXPECT_EQ(evalNumber("sys.stdout is before"), 1);
    const Sink sink = boost::make_shared<OutputCapture>();
    OutputStream::standardOutput().push(sink);
    run("sys.stdout = Loud()");
    OutputStream::standardOutput().pop();
    EXPECT_EQ(sink->getText(), u"farewell\n");
    EXPECT_EQ(evalNumber("sys.stdout is before"), 1);
}

TEST_F(Streams, ThatAreNoneOrMissingAreSoAfterwards) {
    run("import sys\nbefore = sys.stdout\nsys.stdout = None");
    EXPECT_EQ(captured("print('x')"), "x\n");
    EXPECT_EQ(evalNumber("sys.stdout is None"), 1);
    run("del sys.stdout");
    EXPECT_EQ(captured("print('y')"), "y\n");
    EXPECT_EQ(evalNumber("hasattr(sys, 'stdout')"), 0);
    run("sys.stdout = before");
}

TEST_F(Streams, ThatFailAreNotAsked) {
    run("import sys\nbefore = sys.stdout\n"
        "class Failing:\n def __getattribute__(self, name): trace.append(name); raise ValueError\n"
        "sys.stdout = Failing()");
    EXPECT_EQ(captured("print('x')"), "x\n");
    useFullPolicy();
    EXPECT_EQ(captured("print('y')"), "y\n");
    run("sys.stdout = before");
}

TEST_F(Streams, ThatSomebodyKeptLeaveTheSinkAloneAfterwards) {
    const Sink sink = boost::make_shared<OutputCapture>();
    OutputStream::standardOutput().push(sink);
    run("import sys\nkept = sys.stdout");
    OutputStream::standardOutput().pop();
    EXPECT_EQ(sink.use_count(), 1);
    run("print('late', file=kept)\ndel kept");
    EXPECT_EQ(sink->getText(), u"");
}

TEST_F(Streams, TakeWhatOtherThreadsPrint) {
    run("import threading");
    EXPECT_EQ(captured("t = threading.Thread(target=lambda: print('thread'))\nt.start()\nt.join()"), "thread\n");
}

TEST_F(Streams, WithoutADiversionAreLeftAlone) {
    OutputStream::standardOutput().flush();
    OutputStream::standardOutput().pop();
    EXPECT_EQ(PyErr_Occurred(), nullptr);
}

TEST_F(Streams, UnderPoliciesThatRunNoCodeLeaveTheDescriptorsAlone) {
    const int before = dup(1);
    captured([&] { EXPECT_TRUE(areTheSame(1, before)); }, OutputStream::standardOutput());
    close(before);
}

TEST_F(Streams, UnderTheFullPolicyCatchWhatCompiledCodePrints) {
    useFullPolicy();
    const int before = dup(1);
    run("import os, sys, subprocess");
    EXPECT_EQ(captured([] { run("os.write(1, b'raw\\xff')"); }, OutputStream::standardOutput()), "raw\xEF\xBF\xBD");
    EXPECT_EQ(captured([] { std::fputs("from C", stdout); }, OutputStream::standardOutput()), "from C");
    EXPECT_EQ(captured([] { run("print('first', file=sys.__stdout__)"); }, OutputStream::standardOutput()), "first\n");
    EXPECT_EQ(captured("subprocess.run(['/bin/echo', 'child'])"), "child\n");
    EXPECT_EQ(captured([] { run("os.write(2, b'error')"); }, OutputStream::standardError()), "error");
    EXPECT_TRUE(areTheSame(1, before));
    close(before);
}

/// Runs a test with a file of its own in the place of the standard output.
class OwnOutput {
public:
    OwnOutput() : before_(dup(1)), file_(std::tmpfile()) {
        std::fflush(stdout);
        dup2(fileno(file_), 1);
    }
    OwnOutput(const OwnOutput&) = delete;
    OwnOutput& operator=(const OwnOutput&) = delete;
    ~OwnOutput() {
        dup2(before_, 1);
        close(before_);
        std::fclose(file_);
    }
    std::string text() const {
        char buffer[200] = {};
        const ssize_t count = pread(fileno(file_), buffer, sizeof buffer, 0);
        return {buffer, static_cast<std::size_t>(count < 0 ? 0 : count)};
    }

private:
    int before_;
    std::FILE* file_;
};

TEST_F(Streams, UnderTheFullPolicyLeaveWhatWasPrintedBeforeToItsReader) {
    useFullPolicy();
    run("import sys");
    std::string shown;
    std::string taken;
    {
        const OwnOutput output;
        std::fputs("C before, ", stdout);
        run("sys.__stdout__.write('Python before')");
        taken = captured([] { std::fputs("hidden", stdout); }, OutputStream::standardOutput());
        shown = output.text();
    }
    EXPECT_EQ(taken, "hidden");
    EXPECT_THAT(shown, ::testing::HasSubstr("C before"));
    EXPECT_THAT(shown, ::testing::HasSubstr("Python before"));
    EXPECT_THAT(shown, ::testing::Not(::testing::HasSubstr("hidden")));
}

TEST_F(Streams, UnderTheFullPolicyLeaveAClosedDescriptorClosed) {
    useFullPolicy();
    std::fflush(stdout);
    const int before = dup(1);
    close(1);
    const std::string taken = captured("print('x')");
    const bool isClosed = fcntl(1, F_GETFD) == -1;
    dup2(before, 1);
    close(before);
    EXPECT_EQ(taken, "x\n");
    EXPECT_TRUE(isClosed);
}

TEST_F(Streams, UnderTheFullPolicyLeakNoDescriptor) {
    useFullPolicy();
    run("import os\ndef count(): return len(os.listdir('/proc/self/fd'))");
    const long before = evalNumber("count()");
    for (int round = 0; round < 10; ++round) {
        captured("print('x')");
    }
    EXPECT_EQ(evalNumber("count()"), before);
}

TEST_F(Streams, UnderTheFullPolicyDivertNothingWhenTheyCannot) {
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "sanitizers take a descriptor to find out which memory may be read, and here is none left";
#endif
    useFullPolicy();
    run("import sys, resource\nbefore = sys.stdout\nlimits = resource.getrlimit(resource.RLIMIT_NOFILE)\n"
        "resource.setrlimit(resource.RLIMIT_NOFILE, (3, limits[1]))");
    const Sink sink = boost::make_shared<OutputCapture>();
    EXPECT_ANY_THROW(OutputStream::standardOutput().push(sink));
    run("resource.setrlimit(resource.RLIMIT_NOFILE, limits)");
    EXPECT_EQ(evalNumber("sys.stdout is before"), 1);
    EXPECT_EQ(sink.use_count(), 1);
}

TEST_F(Streams, SilenceAWholeEvaluation) {
    useFullPolicy();
    run("import os, sys\ndef f():\n print('out'); print('err', file=sys.stderr); os.write(1, b'raw'); return 5");
    std::string shown;
    bool success = false;
    {
        const OwnOutput output;
        qxArray* value = nullptr;
        success = EvalcExpSuccessful(u"f()", 1, &value, false);
        qxDestroyArray(value);
        shown = output.text();
    }
    EXPECT_TRUE(success);
    EXPECT_EQ(shown, "");
}

}  // namespace
