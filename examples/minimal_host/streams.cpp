// The two streams: what is printed goes to the topmost sink while there is one, else to the terminal.
#include "host/streams.h"

#include <iostream>
#include <vector>

#include "data.h"
#include "host/i18n.h"

namespace {

class Stream final : public OutputStream {
public:
    explicit Stream(std::ostream& terminal) : terminal_(terminal) {}

    void print(std::u16string_view text) {
        if (!sinks_.empty()) {
            sinks_.back()->write(text);
            return;
        }
        constexpr bool refuses = false;
        terminal_ << fl::i18n::to_string(text, fl::i18n::codecvt_ustring_to_string(refuses));
    }

    void push(const boost::shared_ptr<OutputSink>& sink) override { sinks_.push_back(sink); }
    // Nothing is held back, so there is nothing to hand over.
    void flush() noexcept override {}
    void pop() noexcept override { sinks_.pop_back(); }

private:
    std::ostream& terminal_;
    std::vector<boost::shared_ptr<OutputSink>> sinks_;
};

Stream& output() {
    static Stream stream(std::cout);
    return stream;
}
Stream& errors() {
    static Stream stream(std::cerr);
    return stream;
}

}  // namespace

OutputStream& OutputStream::standardOutput() { return output(); }
OutputStream& OutputStream::standardError() { return errors(); }

void minimal_host::print(std::u16string_view text, bool isError) { (isError ? errors() : output()).print(text); }
