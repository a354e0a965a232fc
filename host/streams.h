// The host's output streams: where what the program prints goes. Interpreter thread only.
#pragma once

#include <boost/shared_ptr.hpp>

#include <string>
#include <string_view>

#include "host/visibility.h"

/// Where the text of a stream goes.
class OutputSink {
public:
    virtual ~OutputSink() = default;
    /// Takes a piece of the text, however it is cut.
    virtual void write(std::u16string_view text) = 0;

protected:
    OutputSink() = default;
    OutputSink(const OutputSink&) = default;
    OutputSink& operator=(const OutputSink&) = default;
};

/// A sink that keeps what it is given and shows it to nobody.
class CONTEXTDATA_HOST_API OutputCapture final : public OutputSink {
public:
    OutputCapture();
    ~OutputCapture() override;

    void write(std::u16string_view text) override;
    /// All that was written, borrowed until the next piece comes.
    const std::u16string& getText() const noexcept;

private:
    std::u16string text_;
};

/// A stream of the process, with a pile of sinks of which the topmost gets the text.
class OutputStream {
public:
    /// The two streams live as long as the process. May throw any host failure.
    /// @{
    CONTEXTDATA_HOST_API static OutputStream& standardOutput();
    CONTEXTDATA_HOST_API static OutputStream& standardError();
    /// @}

    /// Diverts the stream to a sink, which the stream keeps alive until it is popped. When it throws, nothing has been
    /// diverted.
    virtual void push(const boost::shared_ptr<OutputSink>& sink) = 0;

    /// Hands what the stream still holds back to the topmost sink. Never fails: it is called while failures pass.
    virtual void flush() noexcept = 0;

    /// Ends the last diversion. Never fails; there is one.
    virtual void pop() noexcept = 0;

protected:
    ~OutputStream() = default;
};
