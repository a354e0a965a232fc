// The scopes of files.
#pragma once

#include <string>

#include "hosts/python/resolution/scopes.h"

namespace python_host {

/// The scope of the code of a file: of the loaded module that was made from it, else of its import statements. Null
/// when the file is neither loaded nor can be read as a program. Borrowed; a file's scope stays until many others were
/// asked for.
FunctionScope* scopeOfFile(const std::string& file);

}  // namespace python_host
