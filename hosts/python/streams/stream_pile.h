// The stand-ins for one of Python's streams, in the order in which they were put there.
//
// Diversions of several threads overlap, and the one that began first may end first. Whoever ends takes itself out of
// the pile, wherever it lies in it, so that the stream that was there before all of them is there again after the last.
#pragma once

#include <Python.h>

#include <vector>

#include "hosts/python/references.h"

namespace python_host {

/// Guarded by the GIL.
class StreamPile {
public:
    /// `sys.stdout` and `sys.stderr`.
    static StreamPile& output();
    static StreamPile& errors();

    /// Puts a stand-in (diverted_stream.h) on top. Runs no code. Throws, with nothing changed, without memory.
    void put(Ref standIn);

    /// Has what somebody put in the place of a stand-in end, as long as the stand-in takes what it says at its end.
    /// Runs code.
    void reinstate(PyObject* standIn) noexcept;

    /// Ends a stand-in's diversion; nothing if it is in the pile no more. Runs no code, unless somebody took the place
    /// of the stand-in since it was reinstated.
    void remove(PyObject* standIn) noexcept;

    /// The same for all of other threads.
    void removeThoseOfOthers() noexcept;

    /// What the program calls the stream at this moment; empty when there is no such name.
    Ref current() const noexcept;

private:
    explicit StreamPile(PyObject* name) noexcept : name_(name) {}

    void set(PyObject* stream) const noexcept;

    PyObject* name_;  // permanent
    std::vector<Ref> standIns_;
};

}  // namespace python_host
