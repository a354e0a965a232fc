// Modules that could be imported and are not: where they stand, found without importing anything.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/python/initial.h"

namespace python_host {

/// A module that is not loaded.
struct UnloadedModule {
    /// The folders that hold its submodules; none when it is no package.
    std::vector<std::filesystem::path> folders;
};

/// Finds a module by its full name, below a package that is loaded, on the search path, or among those that are
/// compiled into the interpreter; the first place that has it decides. Nothing when there is none, and when the name is
/// that of a module that is loaded. Reads folders, opens no file. Throws the interrupt.
std::optional<UnloadedModule> findUnloadedModule(std::string_view dotted);

/// Adds the names of interest of the modules that are compiled into the interpreter, and that code can spell.
void addCompiledIn(const Initial& initial, std::vector<std::string>& names);

}  // namespace python_host
