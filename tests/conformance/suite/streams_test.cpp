#include "host/streams.h"

#include <boost/make_shared.hpp>
#include <boost/weak_ptr.hpp>

#include "tests/conformance/suite/suite.h"

namespace {

using Sink = boost::shared_ptr<OutputCapture>;

class Streams : public conformance::Conformance, public testing::WithParamInterface<bool> {
protected:
    static bool isError() { return GetParam(); }
    static OutputStream& stream() { return isError() ? OutputStream::standardError() : OutputStream::standardOutput(); }
    bool print(const std::u16string& text) { return provider().print(text, isError()); }
    static void end() {
        stream().flush();
        stream().pop();
    }
};

TEST_P(Streams, AreOneForTheProcess) { EXPECT_EQ(&stream(), &stream()); }

TEST_P(Streams, KeepTheirSinkAliveUntilItIsPopped) {
    Sink sink = boost::make_shared<OutputCapture>();
    const boost::weak_ptr<OutputCapture> watched = sink;
    stream().push(sink);
    sink.reset();
    EXPECT_FALSE(watched.expired());
    end();
    EXPECT_TRUE(watched.expired());
}

TEST_P(Streams, TakeOneSinkTwice) {
    const Sink sink = boost::make_shared<OutputCapture>();
    stream().push(sink);
    stream().push(sink);
    end();
    end();
    EXPECT_EQ(sink.use_count(), 1);
}

TEST_P(Streams, GiveWhatIsPrintedToTheSink) {
    const Sink sink = boost::make_shared<OutputCapture>();
    stream().push(sink);
    const bool canPrint = print(u"said");
    end();
    CONFORMANCE_NEEDS(canPrint, "programs that print");
    EXPECT_EQ(sink->getText(), u"said");
}

TEST_P(Streams, GiveTheTopmostSinkAlone) {
    const Sink outer = boost::make_shared<OutputCapture>();
    const Sink inner = boost::make_shared<OutputCapture>();
    stream().push(outer);
    const bool canPrint = print(u"before ");
    stream().push(inner);
    print(u"within");
    end();
    print(u"after");
    end();
    CONFORMANCE_NEEDS(canPrint, "programs that print");
    EXPECT_EQ(inner->getText(), u"within");
    EXPECT_EQ(outer->getText(), u"before after");
}

TEST_P(Streams, LeaveTheOtherStreamAlone) {
    OutputStream& other = isError() ? OutputStream::standardOutput() : OutputStream::standardError();
    const Sink mine = boost::make_shared<OutputCapture>();
    const Sink theirs = boost::make_shared<OutputCapture>();
    stream().push(mine);
    other.push(theirs);
    const bool canPrint = print(u"said");
    other.flush();
    other.pop();
    end();
    CONFORMANCE_NEEDS(canPrint, "programs that print");
    EXPECT_EQ(mine->getText(), u"said");
    EXPECT_EQ(theirs->getText(), u"");
}

INSTANTIATE_TEST_SUITE_P(OfTheProcess, Streams, testing::Bool(),
                         [](const auto& tested) { return tested.param ? "StandardError" : "StandardOutput"; });

TEST(OutputCaptureService, KeepsWhatItIsGiven) {
    OutputCapture capture;
    EXPECT_EQ(capture.getText(), u"");
    capture.write(u"one ");
    capture.write(u"");
    capture.write(u"two");
    EXPECT_EQ(capture.getText(), u"one two");
}

}  // namespace
