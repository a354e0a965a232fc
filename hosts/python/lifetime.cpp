// What the host needs from its first call to the end of the process.
#include "hosts/python/keys.h"
#include "hosts/python/python_host.h"

namespace python_host {

void prepare() { prepareKeys(); }

PyObject* builtinNames() noexcept { return keys().builtins; }

}  // namespace python_host
