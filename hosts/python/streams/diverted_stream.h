// The object that stands in for a stream of the program while the stream is diverted.
#pragma once

#include <Python.h>

#include <boost/shared_ptr.hpp>

#include "host/streams.h"
#include "hosts/python/references.h"

namespace python_host {

/// A text stream that hands what is written to a sink, and answers what printing code asks of a stream. It has no
/// descriptor. Throws a host failure when it cannot be made.
Ref makeDivertedStream(const boost::shared_ptr<OutputSink>& sink);

/// Takes the sink away: whoever kept the stream writes to nobody from then on.
void detachDivertedStream(PyObject* stream) noexcept;

}  // namespace python_host
