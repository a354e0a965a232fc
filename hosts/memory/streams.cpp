#include "hosts/memory/streams.h"

#include <new>
#include <utility>

#include "hosts/memory/watch.h"
#include "hosts/memory/world_state.h"

namespace memory_host {

void MemoryStream::push(const boost::shared_ptr<OutputSink>& sink) {
    enter(Service::streamPush, std::string_view(name_));
    deliver();
    // Last what diverts: when it cannot be done, nothing has been diverted.
    seen_.emplace_back(sink);
    sinks_.push_back(sink);
}

void MemoryStream::flush() noexcept {
    note(Service::streamFlush, name_);
    deliver();
}

void MemoryStream::pop() noexcept {
    note(Service::streamPop, name_);
    sinks_.pop_back();
}

void MemoryStream::deliver() noexcept {
    const std::u16string text = std::exchange(held_, {});
    try {
        if (sinks_.empty()) {
            shown_ += text;
        } else {
            sinks_.back()->write(text);
        }
    } catch (const std::bad_alloc&) {
        // Text for which there is no memory is lost: it is handed over while other failures pass.
        return;
    }
}

}  // namespace memory_host

OutputCapture::OutputCapture() = default;
OutputCapture::~OutputCapture() = default;
void OutputCapture::write(std::u16string_view text) { text_ += text; }
const std::u16string& OutputCapture::getText() const noexcept { return text_; }

OutputStream& OutputStream::standardOutput() {
    memory_host::enter(memory_host::Service::standardOutput);
    return memory_host::currentWorld().standardOutput;
}

OutputStream& OutputStream::standardError() {
    memory_host::enter(memory_host::Service::standardError);
    return memory_host::currentWorld().standardError;
}
