// The dispatcher: function scopes and the list of documented built-in functions. Interpreter thread only.
#pragma once

#include <string>
#include <vector>

#include "host/visibility.h"

/// A place in code from which names are resolved (imports, the enclosing file). Owned by the host, which keeps it
/// valid until control returns to the interpreter.
class FunctionScope;

class Dispatcher {
public:
    CONTEXTDATA_HOST_API static Dispatcher& getDispatcher();

    /// The scope of the code of a file; null when the host knows none. An empty name has none.
    virtual FunctionScope* getFunctionScope(const std::u16string& fileName) = 0;

    /// The scope of the function that runs now; null at the prompt.
    virtual FunctionScope* GetCurrentlyExecutingFunctionScope() = 0;

    /// The names of the built-in functions that have documentation; repeats are allowed.
    virtual std::vector<std::u16string> getDocumentedBuiltins() = 0;

protected:
    ~Dispatcher() = default;
};
