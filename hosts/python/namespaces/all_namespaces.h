// Every namespace that the session could name.
#pragma once

#include "host/array_library.h"

namespace python_host {

/// An array with one element a namespace, whose property "Name" is its name. May throw a host failure.
qxUniqueArray allNamespaceObjects();

}  // namespace python_host
