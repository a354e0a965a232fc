// The object that stands in for a stream of the program while the stream is diverted.
#pragma once

#include <Python.h>

#include <boost/shared_ptr.hpp>

#include "host/streams.h"
#include "hosts/python/references.h"

namespace python_host {

/// A text stream that hands to a sink what the thread that made it writes, and what threads write that began later:
/// they may be its own. It answers what printing code asks of a stream, and has no descriptor. Without a sink it keeps
/// nothing.
///
/// To the threads that were there before, and to all once the diversion is over, it is the stream that lies beneath it:
/// what they say was meant for somebody. Throws a host failure when it cannot be made, or this thread is refused one.
Ref makeDivertedStream(const boost::shared_ptr<OutputSink>& sink);

/// Refuses streams of this kind to all threads but this one from now on.
void refuseDivertedStreamsToOthers() noexcept;

/// What lies beneath a stream of this kind. Empty when there was no stream.
Ref streamBeneath(PyObject* stream) noexcept;
void setStreamBeneath(PyObject* stream, Ref beneath) noexcept;

/// The stream itself, or what lies beneath it if it is one of this kind whose diversion is over; empty stays empty.
Ref stillInUse(Ref stream) noexcept;

/// The first stream beneath that is not of this kind.
Ref lowestStream(Ref stream) noexcept;

/// The thread that made it.
bool isOfThisThread(PyObject* stream) noexcept;

/// What other threads write waits from now on, since the stream beneath leads nowhere for a while. Throws, with nothing
/// changed, without memory.
void holdBackOthers(PyObject* stream);

/// Takes the sink away: the diversion is over.
void endDivertedStream(PyObject* stream) noexcept;

/// Has another stream, which holds back as well, keep what this one held back.
void moveHeldBack(PyObject* from, PyObject* to) noexcept;

/// Writes what was held back to the lowest stream, and runs its code.
void writeHeldBack(PyObject* stream) noexcept;

}  // namespace python_host
