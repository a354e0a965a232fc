// The output streams of the in-memory host.
#pragma once

#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>

#include <string>
#include <vector>

#include "host/streams.h"

namespace memory_host {

/// A stream that holds text back until it is flushed, as real ones do. Nobody looks on: what reaches the end of the
/// pile is kept for the test.
class MemoryStream final : public OutputStream {
public:
    /// Every sink that is pushed is told of in `seen`, which outlives the stream.
    MemoryStream(const char* name, std::vector<boost::weak_ptr<OutputSink>>& seen) : name_(name), seen_(seen) {}

    /// What the program prints.
    void print(std::u16string_view text) { held_ += text; }

    void push(const boost::shared_ptr<OutputSink>& sink) override;
    void flush() noexcept override;
    void pop() noexcept override;

    std::size_t diversions() const noexcept { return sinks_.size(); }
    const std::u16string& shown() const noexcept { return shown_; }

private:
    void deliver() noexcept;

    const char* name_;
    std::vector<boost::weak_ptr<OutputSink>>& seen_;
    std::u16string held_;
    std::vector<boost::shared_ptr<OutputSink>> sinks_;
    std::u16string shown_;
};

}  // namespace memory_host
