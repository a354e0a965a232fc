// The interpreter as an evaluator: expressions, variables of the workspace, and calls. Interpreter thread only.
#pragma once

#include <cstdint>
#include <string>

#include "host/array_library.h"
#include "host/visibility.h"

/// Whether there is an interpreter that can evaluate at this moment.
CONTEXTDATA_HOST_API bool inValidInterpreterAvailable();

/// How an evaluation ended; everything but `success` is the host's own.
enum class inExecutionStatus : std::int32_t { success = 0 };

/// On whose behalf something is evaluated. The library always says `introspection`; a host may hold such evaluations
/// to stricter rules than what a person typed.
enum class inEvaluationSource : std::int32_t { introspection = 3 };

/// Evaluates an expression in the current workspace.
///
/// `outputs` has room for `outputCount` results and holds nulls; the caller owns what is written there, whatever the
/// status. `flag` asks the host to treat the text as a statement that may end with a semicolon. An error of the
/// expression is a status, not an exception; the interrupt and failures of the host itself are thrown.
CONTEXTDATA_HOST_API inExecutionStatus inEvalExp(const std::u16string& expression, int outputCount, qxArray** outputs,
                                                 bool flag, inEvaluationSource source);

/// The variable of a name in the current workspace, shared with the workspace; empty when there is none, as there is
/// none of an empty name.
CONTEXTDATA_HOST_API qxSharedArray inGetValueFromCurrentWorkspace(const std::string& name);

/// Calls the function that the first input, a text, names, with the other inputs. As `inCallFcn` otherwise.
CONTEXTDATA_HOST_API void inFullFevalFcn(int outputCount, qxArray** outputs, int inputCount,
                                         const qxArray* const* inputs);

/// Calls a function by name; with `trap`, an error of the function is a result other than 0 instead of an exception.
/// As `inCallFcn` otherwise. The interrupt is thrown in any case.
CONTEXTDATA_HOST_API int inCallFcnWithTrap(int outputCount, qxArray** outputs, int inputCount,
                                           const qxArray* const* inputs, const char* functionName, bool trap);
