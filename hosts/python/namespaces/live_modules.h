// The modules that are loaded. Nothing here imports, and no module's `__getattr__` is asked.
#pragma once

#include <Python.h>

#include <string>
#include <string_view>

#include "hosts/python/python_host.h"
#include "hosts/python/references.h"

namespace python_host {

/// A loaded module by its full name, borrowed; null when there is none or when the entry is no module.
PyObject* findLoadedModule(std::string_view name) noexcept;
PyObject* findLoadedModule(PyObject* name) noexcept;

/// A name in a loaded module's dictionary, borrowed; null when either is absent.
PyObject* findInModule(std::string_view module, PyObject* name) noexcept;
PyObject* findInModule(PyObject* module, PyObject* name) noexcept;

/// The name under which a module is loaded; empty when it is not.
std::string loadedName(PyObject* module);

}  // namespace python_host
