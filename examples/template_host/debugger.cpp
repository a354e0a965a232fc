// The debugger: there is none to ask, and so it never holds the program.
#include "host/interpreter.h"

IInterpreterBridge* IInterpreter::GetInterpreterBridge() { return nullptr; }
