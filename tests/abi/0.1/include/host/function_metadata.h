// What a function declares about its arguments. Interpreter thread.
#pragma once

#include <string>
#include <tuple>

#include "host/array_library.h"
#include "host/visibility.h"

class FunctionScope;

/// Looks up what a function declares about its arguments, as two host arrays of the host's own form, each perhaps
/// empty, and the scope that the answer belongs to, borrowed from the host, perhaps null.
///
/// The function is the one that `scope` sees, or the one that any code sees when `scope` is null. An unknown function
/// has two empty arrays. May throw any host failure or the interrupt.
CONTEXTDATA_HOST_API std::tuple<qxUniqueArray, qxUniqueArray, FunctionScope*> omGetFunctionMetadata(
    const std::string& functionName, const FunctionScope* scope);
