// The names that may follow a namespace and a dot, and the names of all namespaces.
//
// The three listings append to the caller's vector, never clear, sort or de-duplicate it, and answer whether it grew.
// Names stand as the class system gives them, in its order. Interpreter thread. Nothing is caught: what the host throws
// passes, and names appended before stay.
#pragma once

#include <string>
#include <vector>

#include "contextdata/export.h"
#include "host/array_library.h"

namespace ZELKContextData {

/// The classes of a namespace that are not hidden.
CONTEXTDATA_API bool getNamespaceClassNames(const std::u16string& namespaceName, std::vector<std::u16string>& names);

/// The public listable functions of a namespace.
CONTEXTDATA_API bool getNamespaceFunctionNames(const std::u16string& namespaceName, std::vector<std::u16string>& names);

/// The inner namespaces of a namespace, all of them.
CONTEXTDATA_API bool getNamespaceNamespaceNames(const std::u16string& namespaceName,
                                                std::vector<std::u16string>& names);

/// The names of all namespaces: a cell of N rows and one column, each element what the namespace gives for its "Name".
/// Null when the host can make no cell. What the host throws passes.
CONTEXTDATA_API qxUniqueArray getZELKAllNamespaces();

}  // namespace ZELKContextData
