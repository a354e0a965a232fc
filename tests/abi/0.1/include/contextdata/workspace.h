// The current workspace: values behind what somebody typed, and evaluation that nobody notices.
// Interpreter thread; the error mode and the streams belong to the whole process while a call is under way.
#pragma once

#include <cstdint>
#include <string>

#include "contextdata/export.h"
#include "host/array_library.h"
#include "host/error_mode.h"

/// Disables the array library's errors for a scope and restores the former mode at its end.
class CONTEXTDATA_API DisableErrorMode {
public:
    /// What the host throws passes, with the mode as it was.
    DisableErrorMode();
    DisableErrorMode(const DisableErrorMode&) = delete;
    DisableErrorMode& operator=(const DisableErrorMode&) = delete;
    ~DisableErrorMode();

private:
    qxErrorMode savedMode_;
};

/// Evaluates an expression with everything that it prints thrown away and every error silenced.
///
/// `outputs` has room for `outputCount` results and holds nulls; the caller owns what is written there, whatever the
/// answer. `flag` goes to the interpreter as it is. True when the interpreter reports success; false, with nothing
/// written, when there is none. What is thrown passes, once the streams and the error mode are as they were.
CONTEXTDATA_API bool EvalcExpSuccessful(const std::u16string& expression, int outputCount, qxArray** outputs,
                                        bool flag);

/// The value that an expression denotes in the current workspace; empty when it denotes none.
///
/// A variable followed by plain fields and properties is walked without running code of theirs. The walk stops for good
/// where a value of several elements would be stepped into, at a method, and at values that have no members. Where it
/// cannot go on for another reason (an index, a member that yields nothing), the whole text is evaluated silently. A
/// text whose first name is no variable is never evaluated, nor is one that names a Java function.
///
/// The last value may be of any shape. What the host throws during the walk passes; anything thrown by the evaluation,
/// the interrupt included, is no value.
CONTEXTDATA_API qxSharedArray GetValueFromCurrentWorkspace(const std::u16string& expression);

/// Which of two classes' methods run when values of both meet: -1 the first's, 1 the second's, 0 neither by rule.
/// Where the host says both, -1. Names are ASCII. Nothing is caught.
CONTEXTDATA_API std::int32_t GetClassPrecedence(const std::u16string& first, const std::u16string& second);
