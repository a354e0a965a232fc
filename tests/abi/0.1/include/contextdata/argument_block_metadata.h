// What a function declares about its arguments.
#pragma once

#include <string>

#include "contextdata/export.h"
#include "host/array_library.h"

class FunctionScope;

namespace ZELKContextData {

/// The host's answer about one function. Movable; owns the two arrays.
struct ArgumentBlockMetadata {
    qxUniqueArray first;             ///< perhaps empty; its form is the host's
    qxUniqueArray second;            ///< likewise
    FunctionScope* scope = nullptr;  ///< the scope that the answer belongs to; borrowed from the host, perhaps null
};

/// Asks the host for the argument declarations of a function, as code in `context` (a file) sees it when the feature
/// switch is on, and as any code sees it when the switch is off.
///
/// Interpreter thread. Nothing is caught: what the host throws passes, and no array is left behind.
CONTEXTDATA_API ArgumentBlockMetadata getArgumentBlockMetadata(const std::u16string& context,
                                                               const std::u16string& functionName);

}  // namespace ZELKContextData
