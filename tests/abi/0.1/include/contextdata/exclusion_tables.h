// The fixed tables of names that completion must not offer.
//
// Each function returns a fresh copy of a table that is built on first use and never changes. Any thread. The
// sets are ordered by UTF-16 code unit and compare exactly, letter case included. May throw `std::bad_alloc`.
#pragma once

#include <set>
#include <string>

#include "contextdata/export.h"

namespace ZELKContextData {

/// The names of methods that overload operators.
CONTEXTDATA_API std::set<std::u16string> getZELKMethodsExcludeSet();

/// The full names of the classes whose methods are not completed after a dot.
CONTEXTDATA_API std::set<std::u16string> getNoDotMethodClassesExcludeSet();

/// Graphics namespaces to hide: full names and single namespace words, mixed. Callers compare with the form that
/// they hold.
CONTEXTDATA_API std::set<std::u16string> getGX7NamespacesExcludeSet();

/// Graphics namespace words to hide right below the top namespace "ostrel".
CONTEXTDATA_API std::set<std::u16string> getGX7OstrelNamespacesExcludeSet();

}  // namespace ZELKContextData
