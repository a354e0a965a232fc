// The built-in functions of the language.
#pragma once

#include <string>
#include <vector>

namespace python_host {

/// The names of the functions and classes of the builtins that are documented.
std::vector<std::u16string> documentedBuiltins();

}  // namespace python_host
