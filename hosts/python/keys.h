// The names that the host itself looks for, as interned str objects, and the two dictionaries that are always there.
#pragma once

#include <Python.h>

#include "hosts/python/references.h"

namespace python_host {

/// Permanent: never released, so that they survive whatever order the interpreter is torn down in.
struct Keys {
    PyObject* abstractMeta;
    PyObject* annotations;
    PyObject* arrayApi;
    PyObject* axes;
    PyObject* builtinModuleNames;
    PyObject* cachedProperty;
    PyObject* call;
    PyObject* curframe;
    PyObject* curframeLocals;
    PyObject* dataclassFields;
    PyObject* dataclassParams;
    PyObject* dir;
    PyObject* doc;
    PyObject* enumType;
    PyObject* fieldKind;
    PyObject* fields;
    PyObject* fieldType;
    PyObject* file;
    PyObject* final;
    PyObject* flush;
    PyObject* frozen;
    PyObject* fset;
    PyObject* func;
    PyObject* functools;
    PyObject* getattr;
    PyObject* getattribute;
    PyObject* hasTraits;
    PyObject* init;
    PyObject* initSubclass;
    PyObject* initVar;
    PyObject* make;
    PyObject* manager;
    PyObject* memberMap;
    PyObject* metadata;
    PyObject* module;
    PyObject* moduleName;
    PyObject* modules;
    PyObject* mro;
    PyObject* ordinaryField;
    PyObject* origin;
    PyObject* originalErrors;
    PyObject* originalOutput;
    PyObject* paramsType;
    PyObject* partial;
    PyObject* partialMethod;
    PyObject* path;
    PyObject* priority;
    PyObject* searchPath;
    PyObject* singleDispatch;
    PyObject* standardErrors;
    PyObject* standardOutput;
    PyObject* subclasses;
    PyObject* traitsModule;
    PyObject* traitType;
    PyObject* unsupportedOperation;
    PyObject* wrapped;
    PyObject* write;

    PyObject* builtins;  ///< the dictionary of the built-in names
    PyObject* system;    ///< the dictionary of `sys`, where the interpreter itself looks for its streams
};

/// Made at the first call, or before by `prepareKeys`, which is the way to fail: without memory for them nothing here
/// can go on, and the process ends.
const Keys& keys() noexcept;

/// Makes them, if they are not made. Throws a host failure when they cannot be made.
void prepareKeys();

/// What `sys` holds under a name; empty when it holds nothing. Needs no memory and runs no code.
Ref systemValue(PyObject* name) noexcept;

}  // namespace python_host
