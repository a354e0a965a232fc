// The names that a value offers when it is asked itself.
#pragma once

#include <Python.h>

#include "hosts/python/objects/name_list.h"

namespace python_host {

/// The public listable methods of the object's type, static ones too.
NameList methodNamesOf(PyObject* object);

/// What can be read of an object: the readable listable properties and constants of its class, its own attributes, and
/// what its `__dir__` adds. A module's variables; for a class, what its metaclass declares.
NameList propertyNamesOf(PyObject* object);

/// The text keys of a plain dictionary, the attributes of a plain record; nothing for any other object.
NameList fieldNamesOf(PyObject* object);

/// The canonical name of the object's class, whatever kind of value it is.
NameList classNameOf(PyObject* object);

/// "class" or "namespace" and its name, for an object that is a class or a loaded module; else nothing.
NameList denotationOf(PyObject* object);

}  // namespace python_host
