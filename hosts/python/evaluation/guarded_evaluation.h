// Evaluating an expression without running code.
#pragma once

#include "hosts/python/evaluation/expression.h"
#include "hosts/python/evaluation/workspace.h"
#include "hosts/python/python_host.h"

namespace python_host {

/// The value of an expression under a policy that runs no code of a user's; empty when there is none, and when the
/// policy refuses any part of it. No Python error is left; throws the interrupt.
Ref evaluateGuarded(const Expression& expression, const Workspace& workspace, EvaluationPolicy policy);

}  // namespace python_host
