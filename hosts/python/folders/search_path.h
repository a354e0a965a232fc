// The working folder and the folders in which Python looks for modules.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "host/file_system.h"

namespace python_host {

/// The working directory of the process; throws a host failure when it is gone.
std::filesystem::path workingDirectory();

/// The entries of `sys.path` as they are now, as absolute paths in their order, repeats included; the empty entry is
/// the working directory. Whether an entry is a folder is not asked. Entries that are no plain str or have no UTF-8 are
/// left out, and so are all of them when `sys.path` is no plain list. Runs no code of the session's.
std::vector<std::filesystem::path> searchPathEntries();

/// The same behind the contracts of the host; permanent.
const ICurrentFolder& currentFolder();
const ISearchPath& searchPath();

}  // namespace python_host
