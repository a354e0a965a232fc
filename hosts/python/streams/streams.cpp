// The output streams of the program: `sys.stdout` and `sys.stderr`, and the descriptors behind them.
//
// Under the policies that run no code of a user, only a known getter could print, and it would do so through Python: a
// stand-in for Python's stream is all that a diversion takes there. Under the full policy anything may print by any
// way, compiled code too, so the descriptor is diverted as well, at many times the cost.
#include "host/streams.h"

#include <Python.h>

#include <cstdio>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "host/i18n.h"
#include "hosts/python/errors.h"
#include "hosts/python/namespaces/live_modules.h"
#include "hosts/python/python_host.h"
#include "hosts/python/streams/descriptor_capture.h"
#include "hosts/python/streams/diverted_stream.h"
#include "hosts/python/values/callables.h"

namespace python_host {

namespace {

bool isFullPolicy() noexcept { return evaluationPolicy() == EvaluationPolicy::full; }

/// An interrupt must not be lost where it cannot be thrown; the next check of the interpreter raises it again.
void dropError() noexcept {
    if (PyErr_Occurred() != nullptr && PyErr_ExceptionMatches(PyExc_KeyboardInterrupt) != 0) {
        PyErr_SetInterrupt();
    }
    PyErr_Clear();
}

/// Has a stream of the language's own kind write out what it holds, so that it goes where it belongs by its time. What
/// anybody else put in the place of the stream is not asked.
void writeOut(PyObject* stream) noexcept {
    if (stream == nullptr || !isNamedType(Py_TYPE(stream), "_io.TextIOWrapper")) {
        return;
    }
    const Ref done = Ref::steal(PyObject_CallMethod(stream, "flush", nullptr));
    if (!done) {
        dropError();
    }
}

class PythonStream final : public OutputStream {
public:
    PythonStream(const char* name, const char* originalName, int descriptor, std::FILE* buffer) noexcept
        : name_(name), originalName_(originalName), descriptor_(descriptor), buffer_(buffer) {}

    void push(const boost::shared_ptr<OutputSink>& sink) override {
        const PendingErrorGuard pending;
        layers_.reserve(layers_.size() + 1);
        Layer layer;
        layer.sink = sink;
        layer.standIn = makeDivertedStream(sink);
        layer.before = Ref::share(PySys_GetObject(name_));
        if (isFullPolicy()) {
            writeOutOriginals(layer);
            layer.descriptor = std::make_unique<DescriptorCapture>(descriptor_, buffer_);
        }
        if (PySys_SetObject(name_, layer.standIn.get()) != 0) {
            throwPythonError();
        }
        layers_.push_back(std::move(layer));
    }

    void flush() noexcept override {
        if (layers_.empty() || !layers_.back().descriptor) {
            return;
        }
        const PendingErrorGuard pending;
        writeOutOriginals(layers_.back());
        try {
            const std::string text = layers_.back().descriptor->take();
            if (!text.empty()) {
                layers_.back().sink->write(fl::i18n::to_ustring(text));
            }
        } catch (...) {
            // The text is lost, as it would have been with a sink that keeps nothing.
        }
    }

    void pop() noexcept override {
        if (layers_.empty()) {
            return;
        }
        const PendingErrorGuard pending;
        const Layer layer = std::move(layers_.back());
        layers_.pop_back();
        // What somebody put in our place meanwhile ends here, and what it says at its end is not shown either.
        setStream(layer.standIn.get());
        if (layer.descriptor) {
            writeOutOriginals(layer);
        }
        detachDivertedStream(layer.standIn.get());
        setStream(layer.before.get());
    }

private:
    struct Layer {
        boost::shared_ptr<OutputSink> sink;
        Ref standIn;
        Ref before;  ///< empty when there was none
        std::unique_ptr<DescriptorCapture> descriptor;
    };

    void setStream(PyObject* stream) const noexcept {
        if (PySys_SetObject(name_, stream) != 0) {
            dropError();
        }
    }

    /// The streams that write to the descriptor, as far as they can be known: the one in use before, and the first one.
    void writeOutOriginals(const Layer& layer) const noexcept {
        writeOut(layer.before.get());
        const Ref original = Ref::share(PySys_GetObject(originalName_));
        if (original.get() != layer.before.get()) {
            writeOut(original.get());
        }
    }

    const char* name_;
    const char* originalName_;
    int descriptor_;
    std::FILE* buffer_;
    std::vector<Layer> layers_;
};

}  // namespace

}  // namespace python_host

OutputCapture::OutputCapture() = default;
OutputCapture::~OutputCapture() = default;
void OutputCapture::write(std::u16string_view text) { text_ += text; }
const std::u16string& OutputCapture::getText() const noexcept { return text_; }

// Never destroyed: the interpreter, whose objects they may hold, is gone when statics are.

OutputStream& OutputStream::standardOutput() {
    static auto& stream = *new python_host::PythonStream("stdout", "__stdout__", 1, stdout);
    return stream;
}

OutputStream& OutputStream::standardError() {
    static auto& stream = *new python_host::PythonStream("stderr", "__stderr__", 2, stderr);
    return stream;
}
