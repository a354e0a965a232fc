// The language of the in-memory host: chains of fields and properties, indexing, and calls.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

#include "host/array_library.h"

namespace memory_host {

/// Says why an expression has no value.
class EvaluationError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Evaluates an expression in the workspace of the world that stands.
///
///     expression := primary { "." name [ "(" arguments ")" ] | "(" arguments ")" } [ ";" ]
///     primary    := name | number | "'" text "'" | "(" expression ")"
///
/// A name is a variable, or else a registered function, which is called; a member after an object's dot is a property
/// or else a method, which is called too. Indices count from 1. Throws `EvaluationError` for what it cannot make sense
/// of and for values that are missing; whatever a called function throws passes.
qxSharedArray evaluate(std::string_view expression);

}  // namespace memory_host
