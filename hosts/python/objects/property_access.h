// Reading an attribute without running code.
#pragma once

#include <Python.h>

#include <cstdint>

#include "hosts/python/references.h"

namespace python_host {

/// How far a reading may go.
enum class AttributeReach : std::uint8_t {
    plainData,     ///< what stands in dictionaries and slots as it is; no descriptor is asked
    knownGetters,  ///< methods too, bound to their object, and getters that are known to run no code of a user
};

/// The attribute of a name; empty when there is none and when it may not be read. `name` is a plain str. Leaves no
/// Python error. May throw a host failure.
Ref readAttribute(PyObject* object, PyObject* name, AttributeReach reach);

}  // namespace python_host
