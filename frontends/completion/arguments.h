// The arguments that a call may name.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "frontends/completion/item.h"
#include "frontends/completion/language.h"

namespace contextdata::completion {

/// What stands in a call before the cursor. The texts are borrowed.
struct CallSoFar {
    std::span<const std::u16string_view> callee;  ///< not empty
    std::span<const std::u16string_view> given;   ///< arguments that were given by name
    std::size_t positions = 0;                    ///< how many were given by position
};

/// The arguments of the callee, as code in `contextFile` sees it, that may be given by name and were not given yet,
/// each with the mark that a value follows. None for an unknown callee. The interrupt passes; a failure is no
/// arguments.
Items argumentsOf(const CallSoFar& call, const std::u16string& contextFile, const Language& language);

}  // namespace contextdata::completion
