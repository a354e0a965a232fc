// The attributes that an object carries itself.
#pragma once

#include <Python.h>

#include "hosts/python/members/member_table.h"
#include "hosts/python/objects/name_list.h"

namespace python_host {

/// The dictionary of an object's own attributes, borrowed; null when it has none. No attribute is asked.
PyObject* instanceDictionary(PyObject* object) noexcept;

/// One of them by its name, borrowed; null when the object does not carry it.
PyObject* storedAttribute(PyObject* object, const char* name);

/// Adds the keys of a dictionary that are public identifiers.
void appendPublicKeys(PyObject* dictionary, UniqueNameList& names);

/// Adds a name that an object says it has: if it is a plain str, a public identifier and no member of the class.
void appendIfNew(PyObject* name, const MemberTable& members, UniqueNameList& names);

}  // namespace python_host
