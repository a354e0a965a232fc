// An object's own `__dir__`. (Whether a class has one is a question of the public header.)
#pragma once

#include <Python.h>

#include "hosts/python/members/member_table.h"
#include "hosts/python/objects/name_list.h"

namespace python_host {

/// Adds the public identifiers that an object's `__dir__` gives besides the members of its class, when the class has a
/// `__dir__` that may add some.
///
/// This is the one question that runs the object's code, through the hook that the language documents for it: what it
/// prints is thrown away, what it raises counts as no answer, and only KeyboardInterrupt passes, as the interrupt.
void appendDirectory(PyObject* object, const MemberTable& members, UniqueNameList& names);

}  // namespace python_host
