// The interpreter: calls by name, and the debugger's focus. Interpreter thread only.
#pragma once

#include <cstdint>
#include <string>

#include "host/array_library.h"
#include "host/visibility.h"

/// What the interpreter says about the debugger.
class IInterpreterBridge {
public:
    /// Whether the debugger holds the program at this moment.
    virtual bool isDebuggerStopped() = 0;

    /// The file in which the debugger's focus lies, with the two position numbers that the interpreter keeps for
    /// it. Asked only while the debugger is stopped.
    virtual std::u16string getDebuggerFocus(std::int32_t& position1, std::int32_t& position2) = 0;

protected:
    ~IInterpreterBridge() = default;
};

/// Where the bridge to the interpreter is found.
class IInterpreter {
public:
    /// The bridge, borrowed for the life of the process; null when there is no interpreter to ask.
    CONTEXTDATA_HOST_API static IInterpreterBridge* GetInterpreterBridge();
};

/// Calls a function of the interpreter by name.
///
/// `outputs` has room for `outputCount` results, which the caller owns afterwards; a result that the function
/// did not give is null. `inputs` are borrowed. An error of the function is thrown as a host failure, and then
/// nothing has been written to `outputs`. May throw the interrupt.
///
/// The library itself asks for "methods", "properties" and "fieldnames", each of one value: the names are
/// returned as a cell of texts. A host may offer two more of the same form, which front ends use when they are
/// there: "class" gives the one full name of the value's class; "denotes", of a value that stands for a class or
/// a namespace itself, gives two texts: "class" or "namespace", and its name.
CONTEXTDATA_HOST_API void inCallFcn(int outputCount, qxArray** outputs, int inputCount, const qxArray* const* inputs,
                                    const char* functionName);

/// Calls a method of a value with the value as its only input and one output, which the caller owns; null when
/// the method gave none. Throws the method's error as a host failure, or the interrupt.
CONTEXTDATA_HOST_API qxArray* inCallMethodSingleInputSingleOutput(const qxArray* value, const char* methodName);
