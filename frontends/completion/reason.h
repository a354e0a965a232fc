// Why nothing is offered.
#pragma once

#include <string>

#include "frontends/completion/complete.h"

namespace contextdata::completion {

/// A phrase for people ("'x' is not defined") that says why a text, for which there are no items, has none. May ask
/// the host once more for what it was asked before. The interrupt passes; a failure is a less exact reason.
std::u16string reasonFor(const ParsedText& parsed, const Request& request, Workspace& workspace);

}  // namespace contextdata::completion
