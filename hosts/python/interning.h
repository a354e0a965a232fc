// The intern table, and the quick way into it from Python's own interned strings.
#pragma once

#include <Python.h>

#include <string_view>

#include "host/interned.h"

namespace python_host {

/// The handle of a UTF-8 name; the empty handle for what cannot be a name (nothing, or a zero byte within).
zelk::COSInternedID internName(std::string_view name);

/// The handle of a name that is interned already; the empty handle for any other. Adds nothing.
zelk::COSInternedID findInterned(std::string_view name);

/// The handle of an exact str; the empty handle for a text that cannot be a name, a lone surrogate included.
zelk::COSInternedID internKey(PyObject* text);

}  // namespace python_host
