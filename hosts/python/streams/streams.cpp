// The output streams of the program: `sys.stdout` and `sys.stderr`, and the descriptors behind them.
//
// Under the policies that run no code of a user, only a known getter could print, and it would do so through Python: a
// stand-in for Python's stream is all that a diversion takes there. Under the full policy anything may print by any
// way, compiled code too, so the descriptor is diverted as well, at many times the cost.
#include "host/streams.h"

#include <Python.h>

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <list>
#include <memory>
#include <string>
#include <utility>

#include "host/i18n.h"
#include "hosts/python/errors.h"
#include "hosts/python/keys.h"
#include "hosts/python/python_host.h"
#include "hosts/python/running_code.h"
#include "hosts/python/streams/descriptor_capture.h"
#include "hosts/python/streams/diverted_stream.h"
#include "hosts/python/streams/stream_pile.h"
#include "hosts/python/values/callables.h"

namespace python_host {

namespace {

bool isFullPolicy() noexcept { return evaluationPolicy() == EvaluationPolicy::full; }

/// Has a stream of the language's own kind write out what it holds, so that it goes where it belongs by its time. What
/// anybody else put in the place of the stream is not asked.
void writeOut(PyObject* stream) noexcept {
    if (stream == nullptr || !isNamedType(Py_TYPE(stream), "_io.TextIOWrapper")) {
        return;
    }
    const Ref done = Ref::steal(runCode([stream] { return PyObject_CallMethodNoArgs(stream, keys().flush); }));
    if (!done) {
        dropError();
    }
}

/// One diversion, by one thread.
struct Layer {
    boost::shared_ptr<OutputSink> sink;
    Ref standIn;
    std::unique_ptr<DescriptorCapture> descriptor;
};

/// Diversions of several threads overlap: each ends its own last one, which need not be the topmost. Wherever code
/// runs, other threads may come in and change the layers; what must not be seen half done runs none.
class PythonStream final : public OutputStream {
public:
    PythonStream(StreamPile& pile, PyObject* originalName, int descriptor, std::FILE* buffer) noexcept
        : pile_(pile), originalName_(originalName), descriptor_(descriptor), buffer_(buffer) {}

    void push(const boost::shared_ptr<OutputSink>& sink) override {
        const PendingErrorGuard pending;
        std::list<Layer> fresh(1);
        Layer& layer = fresh.front();
        layer.sink = sink;
        layer.standIn = makeDivertedStream(sink);
        if (isFullPolicy()) {
            holdBackOthers(layer.standIn.get());
            writeOutOriginals(pile_.current());
            layer.descriptor = std::make_unique<DescriptorCapture>(descriptor_, buffer_);
        }
        pile_.put(layer.standIn);
        layers_.splice(layers_.end(), fresh);
    }

    void flush() noexcept override {
        const auto layer = lastOfThisThread();
        if (layer == layers_.end() || !layer->descriptor) {
            return;
        }
        const PendingErrorGuard pending;
        writeOutOriginals(streamBeneath(layer->standIn.get()));
        if (lastOfThisThread() != layer) {
            return;
        }
        try {
            const std::string text = layer->descriptor->take();
            if (!text.empty()) {
                layer->sink->write(fl::i18n::to_ustring(text));
            }
        } catch (...) {
            // The text is lost, as it would have been with a sink that keeps nothing.
        }
    }

    void pop() noexcept override {
        const auto layer = lastOfThisThread();
        if (layer == layers_.end()) {
            return;
        }
        const PendingErrorGuard pending;
        // What somebody put in our place meanwhile ends here, and what it says at its end is not shown either.
        pile_.reinstate(layer->standIn.get());
        if (layer->descriptor) {
            writeOutOriginals(streamBeneath(layer->standIn.get()));
        }
        // Meanwhile somebody may have ended all that others had diverted.
        if (lastOfThisThread() == layer) {
            end(layer);
        }
    }

    /// Ends what other threads have diverted, of which this one is not told when they are gone.
    void endThoseOfOthers() noexcept {
        const PendingErrorGuard pending;
        const auto isOfOther = [](const Layer& layer) { return !isOfThisThread(layer.standIn.get()); };
        // From the start each time: ending one may let others in, who end theirs.
        for (auto layer = std::find_if(layers_.begin(), layers_.end(), isOfOther); layer != layers_.end();
             layer = std::find_if(layers_.begin(), layers_.end(), isOfOther)) {
            end(layer);
        }
    }

private:
    using Place = std::list<Layer>::iterator;

    Place lastOfThisThread() noexcept {
        const auto found = std::find_if(layers_.rbegin(), layers_.rend(),
                                        [](const Layer& layer) { return isOfThisThread(layer.standIn.get()); });
        return found == layers_.rend() ? layers_.end() : std::prev(found.base());
    }

    void end(Place place) noexcept {
        const auto divertsDescriptor = [](const Layer& layer) { return layer.descriptor != nullptr; };
        const auto later = std::find_if(std::next(place), layers_.end(), divertsDescriptor);
        if (place->descriptor && later != layers_.end()) {
            place->descriptor->endBelow(*later->descriptor);
        }
        std::list<Layer> ended;
        ended.splice(ended.end(), layers_, place);
        PyObject* standIn = ended.front().standIn.get();
        ended.front().descriptor.reset();
        pile_.remove(standIn);
        const auto other = std::find_if(layers_.begin(), layers_.end(), divertsDescriptor);
        if (other != layers_.end()) {
            moveHeldBack(standIn, other->standIn.get());
        } else {
            writeHeldBack(standIn);
        }
    }

    /// The streams that write to the descriptor, as far as they can be known: the one in use, and the first one.
    void writeOutOriginals(Ref inUse) const noexcept {
        const Ref stream = lowestStream(std::move(inUse));
        writeOut(stream.get());
        const Ref original = systemValue(originalName_);
        if (original.get() != stream.get()) {
            writeOut(original.get());
        }
    }

    StreamPile& pile_;
    PyObject* originalName_;
    int descriptor_;
    std::FILE* buffer_;
    std::list<Layer> layers_;
};

// Never destroyed: the interpreter, whose objects they may hold, is gone when statics are.

PythonStream& outputStream() {
    static auto& stream = *new PythonStream(StreamPile::output(), keys().originalOutput, 1, stdout);
    return stream;
}

PythonStream& errorStream() {
    static auto& stream = *new PythonStream(StreamPile::errors(), keys().originalErrors, 2, stderr);
    return stream;
}

}  // namespace

void endDiversionsOfOtherThreads() noexcept {
    outputStream().endThoseOfOthers();
    errorStream().endThoseOfOthers();
    // What hooks of objects print is diverted without a layer.
    StreamPile::output().removeThoseOfOthers();
    StreamPile::errors().removeThoseOfOthers();
}

void refuseDiversionsOfOtherThreads() noexcept {
    refuseDivertedStreamsToOthers();
    endDiversionsOfOtherThreads();
}

}  // namespace python_host

OutputCapture::OutputCapture() = default;
OutputCapture::~OutputCapture() = default;
void OutputCapture::write(std::u16string_view text) { text_ += text; }
const std::u16string& OutputCapture::getText() const noexcept { return text_; }

OutputStream& OutputStream::standardOutput() { return python_host::outputStream(); }
OutputStream& OutputStream::standardError() { return python_host::errorStream(); }
