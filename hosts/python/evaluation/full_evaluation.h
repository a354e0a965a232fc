// Evaluating an expression as the interpreter does.
#pragma once

#include <string>

#include "hosts/python/evaluation/workspace.h"
#include "hosts/python/references.h"

namespace python_host {

/// The value of a UTF-8 expression, whatever code that runs; empty when it is none, and when it raises anything but the
/// interrupt, which is thrown. No Python error is left.
Ref evaluateFully(const std::string& text, const Workspace& workspace);

}  // namespace python_host
