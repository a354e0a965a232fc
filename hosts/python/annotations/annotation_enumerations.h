// Enumerations and their members, read from what the enumeration keeps of them.
#pragma once

#include <Python.h>

#include <string>
#include <vector>

#include "hosts/python/references.h"

namespace python_host {

/// A member by the name that it was first given; empty when the enumeration has none of that name.
Ref enumerationMember(PyTypeObject* type, PyObject* name);

/// The names of an enumeration's members in the order of their declaration, aliases left out; none for other classes.
std::vector<std::string> enumerationMemberNames(PyTypeObject* type);

/// Whether objects of an enumeration may be combinations of its members.
bool hasCombinedMembers(PyTypeObject* type);

/// A member as people write it, "Colour.RED"; empty for an object that is none.
std::string enumerationMemberText(PyObject* object);

inline bool isEnumerationMember(PyObject* object) { return !enumerationMemberText(object).empty(); }

}  // namespace python_host
