// What statements that import may name.
#pragma once

#include <span>
#include <string_view>

#include "frontends/completion/item.h"

namespace contextdata::completion {

/// The namespaces in the one that a chain of names spells, by the last part of their names; the outermost ones when the
/// chain is empty. A namespace that tells of none, or that is not known itself, is sought in the list of all
/// namespaces, which costs more. The interrupt passes; a list that the host fails at contributes nothing.
Items modulesIn(std::span<const std::u16string_view> chain);

/// What code may take from the namespace that a chain spells: all that it holds, and the modules in it.
Items namesToImport(std::span<const std::u16string_view> chain);

}  // namespace contextdata::completion
