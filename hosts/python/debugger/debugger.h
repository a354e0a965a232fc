// The debugger that holds the program.
#pragma once

#include <Python.h>

#include "hosts/python/references.h"

namespace python_host {

/// The frame in the debugger's focus; empty when no debugger holds the program. Only the debugger's own dictionary and
/// the frame's code are read: asking a frame for its variables would lose changes that are not written back yet.
Ref focusedFrame();

/// The variables of that frame as the debugger holds them, whatever kind of mapping that is; empty when there are none.
Ref focusedVariables();

}  // namespace python_host
