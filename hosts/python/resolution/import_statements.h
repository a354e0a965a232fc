// What the import statements of a file bind, without running any of them.
#pragma once

#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace python_host {

struct Imports {
    /// From a bound name to the full dotted name that it stands for.
    std::unordered_map<std::string, std::string> names;
    /// Modules all of whose public names are bound.
    std::vector<std::string> everythingOf;
    /// Classes and functions of the file itself, which are not alive.
    std::unordered_set<std::string> definitions;
};

/// Parses source text; nothing when it is no valid program. `package` is the full name of the package that the text
/// belongs to, empty for none; relative imports start from it. Throws only the interrupt and `std::bad_alloc`.
std::optional<Imports> parseImports(const std::string& source, const std::string& package);

}  // namespace python_host
