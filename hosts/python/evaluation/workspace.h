// The variables among which names are looked up.
#pragma once

#include <Python.h>

#include "hosts/python/references.h"

namespace python_host {

/// The dictionaries of the current workspace, each of which may be missing.
struct Workspace {
    Ref locals;
    Ref globals;

    static Workspace current();

    /// The variable of a name, a plain str; empty when there is none. No key is compared that is no plain str, and a
    /// built-in is no variable.
    Ref find(PyObject* name) const;
};

}  // namespace python_host
