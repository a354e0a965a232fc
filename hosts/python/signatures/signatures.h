// What a callable declares about its arguments.
#pragma once

#include <Python.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace python_host {

enum class ParameterKind : std::uint8_t { positionalOnly, positionalOrKeyword, keywordOnly };

/// A parameter that has a name for the caller; what collects further arguments (`*args`, `**kwargs`) is none.
struct Parameter {
    std::string name;
    ParameterKind kind = ParameterKind::positionalOrKeyword;
};

/// In the order of the declaration.
using Signature = std::vector<Parameter>;

/// The signature of a live object, as who calls it sees it: without what a method is bound to, and without what a
/// partial call has filled. Nothing for an object that declares none, or cannot be called. All is read as data: no
/// attribute is asked, and a `__signature__` that somebody made is left alone.
std::optional<Signature> signatureOf(PyObject* callable);

}  // namespace python_host
