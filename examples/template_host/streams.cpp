// The output streams. Whatever prints in your session has to give its text to the topmost sink while there is one; the
// pile is all there is yet.
#include "host/streams.h"

#include <vector>

namespace {

class SilentStream final : public OutputStream {
public:
    void push(const boost::shared_ptr<OutputSink>& sink) override { sinks_.push_back(sink); }
    void flush() noexcept override {}
    void pop() noexcept override { sinks_.pop_back(); }

private:
    std::vector<boost::shared_ptr<OutputSink>> sinks_;
};

}  // namespace

OutputStream& OutputStream::standardOutput() {
    static SilentStream stream;
    return stream;
}

OutputStream& OutputStream::standardError() {
    static SilentStream stream;
    return stream;
}
