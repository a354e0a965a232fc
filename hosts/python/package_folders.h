// The submodules that stand in a package's folders, loaded or not.
#pragma once

#include <Python.h>

#include <string>
#include <vector>

namespace python_host {

/// The short names of the modules and packages in the folders of a package's `__path__`, each once, in the order of
/// the alphabet; nothing for a module that is no package. Reads folders, opens no file, imports nothing.
std::vector<std::string> submodulesInFolders(PyObject* module);

}  // namespace python_host
