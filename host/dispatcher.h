// The dispatcher: function scopes, folders, the object system and the list of documented built-in functions.
// Interpreter thread only.
#pragma once

#include <string>
#include <vector>

#include "host/file_system.h"
#include "host/object_system.h"
#include "host/visibility.h"

/// A place in code from which names are resolved (imports, the enclosing file). Owned by the host, which keeps it
/// valid until control returns to the interpreter.
class FunctionScope;

/// The way from the library to the parts of a session. Every operation may throw any host failure or the interrupt.
class Dispatcher {
public:
    /// The one dispatcher of the process, borrowed for its life.
    CONTEXTDATA_HOST_API static Dispatcher& getDispatcher();

    /// The scope of the code of a file; null when the host knows none. An empty name has none.
    virtual FunctionScope* getFunctionScope(const std::u16string& fileName) = 0;

    /// The scope of the function that runs now; null at the prompt.
    virtual FunctionScope* GetCurrentlyExecutingFunctionScope() = 0;

    /// The working folder and the search path; the host keeps them for the life of the process.
    /// @{
    virtual const ICurrentFolder& GetCurrentWorkingFolder() = 0;
    virtual const ISearchPath& GetCurrentPath() = 0;
    /// @}

    /// The object system; the host keeps it for the life of the process.
    virtual ObjectSystem& getObjectSystem() = 0;

    /// The names of the built-in functions that have documentation; repeats are allowed.
    virtual std::vector<std::u16string> getDocumentedBuiltins() = 0;

protected:
    ~Dispatcher() = default;
};
