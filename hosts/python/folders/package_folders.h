// The modules that stand in folders, loaded or not.
#pragma once

#include <Python.h>

#include <filesystem>
#include <set>
#include <string>
#include <vector>

namespace python_host {

/// Adds the names of the modules and packages in a folder; none when it is no folder or may not be read. Opens no file,
/// imports nothing.
void addModulesInFolder(const std::filesystem::path& folder, std::set<std::string>& names);

/// The short names of the modules and packages in the folders of a package's `__path__`, each once, in the order of
/// the alphabet; nothing for a module that is no package. Reads folders, opens no file, imports nothing.
std::vector<std::string> submodulesInFolders(PyObject* module);

}  // namespace python_host
