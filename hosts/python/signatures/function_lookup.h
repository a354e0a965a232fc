// From the name of a function, as code spells it, to the live object.
#pragma once

#include <string_view>

#include "hosts/python/references.h"
#include "hosts/python/resolution/scopes.h"

namespace python_host {

/// The object that a dotted name denotes in a scope, or in the workspace when `scope` is null: a function, a class, a
/// method of an object. What the scope does not bind is sought among the built-ins. Empty when the name denotes
/// nothing, or nothing that can be read without running code.
Ref findFunction(std::string_view dotted, const FunctionScope* scope);

}  // namespace python_host
