// What a namespace holds.
#pragma once

#include <string>

#include "frontends/completion/item.h"

namespace contextdata::completion {

/// The classes that are not hidden, the public listable functions and the inner namespaces of a namespace, each
/// under the last part of its name. Empty for an unknown namespace. The interrupt passes; a list that the host
/// fails at contributes nothing.
Items membersOfNamespace(const std::u16string& name);

/// The inner namespaces alone.
Items innerNamespaces(const std::u16string& name);

}  // namespace contextdata::completion
