#include "hosts/python/streams/output_capture.h"

#include "hosts/python/errors.h"
#include "hosts/python/streams/diverted_stream.h"
#include "hosts/python/streams/stream_pile.h"

namespace python_host {

namespace {

void end(StreamPile& pile, PyObject* standIn) noexcept {
    pile.reinstate(standIn);
    pile.remove(standIn);
}

}  // namespace

OutputCapture::OutputCapture() : output_(makeDivertedStream({})), errors_(makeDivertedStream({})) {
    StreamPile::output().put(output_);
    try {
        StreamPile::errors().put(errors_);
    } catch (...) {
        end(StreamPile::output(), output_.get());
        throw;
    }
}

OutputCapture::~OutputCapture() {
    const PendingErrorGuard pending;
    end(StreamPile::output(), output_.get());
    end(StreamPile::errors(), errors_.get());
}

}  // namespace python_host
