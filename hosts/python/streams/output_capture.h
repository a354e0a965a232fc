// Keeping what Python code prints from the screen.
#pragma once

#include "hosts/python/references.h"

namespace python_host {

/// For the life of the guard, nobody reads what this thread writes to `sys.stdout` and `sys.stderr`.
class OutputCapture {
public:
    /// Throws, with nothing changed, when no stand-in can be made.
    OutputCapture();
    OutputCapture(const OutputCapture&) = delete;
    OutputCapture& operator=(const OutputCapture&) = delete;
    /// Puts the streams back; an error that is set stays set.
    ~OutputCapture();

private:
    Ref output_;
    Ref errors_;
};

}  // namespace python_host
