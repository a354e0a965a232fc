// The modules that stand in folders, loaded or not.
#pragma once

#include <Python.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/python/initial.h"

namespace python_host {

/// Adds the names of interest of the modules and packages in a folder, in any order and perhaps repeatedly; none when
/// it is no folder or may not be read. Opens no file, imports nothing.
void addModulesInFolder(const std::filesystem::path& folder, const Initial& initial, std::vector<std::string>& names);

/// Whether a folder is a package: it holds the file that says so.
bool isPackageFolder(const std::string& folder);

/// Whether a folder holds a module of that name which is a file.
bool hasModuleFile(const std::filesystem::path& folder, std::string_view name);

/// The folders of a package's `__path__`; none for a module that is no package, and when they are computed.
std::vector<std::filesystem::path> foldersOfPackage(PyObject* module);

/// The short names of the modules and packages in the folders of a package's `__path__`, each once, in the order of
/// the alphabet; nothing for a module that is no package. Reads folders, opens no file, imports nothing.
std::vector<std::string> submodulesInFolders(PyObject* module);

}  // namespace python_host
