// Calls that have some of their arguments already (`functools.partial`).
#pragma once

#include <Python.h>

#include <cstddef>
#include <optional>

#include "hosts/python/references.h"
#include "hosts/python/signatures/signatures.h"

namespace python_host {

struct PartialCall {
    Ref function;
    std::size_t positionals = 0;  ///< how many arguments are filled by position
    Ref keywords;                 ///< a dictionary of those that are filled by name
};

/// The parts of a partial call; nothing for any other object.
std::optional<PartialCall> partialCallOf(PyObject* object);

/// What is left to declare. An argument filled by name may be given anew by name, and so may those behind it, which no
/// position reaches any more.
Signature applyTo(Signature signature, const PartialCall& call);

}  // namespace python_host
