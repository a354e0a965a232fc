// The attribute names that the host itself looks for, as interned str objects.
#pragma once

#include <Python.h>

namespace python_host {

/// Permanent: never released, so that they survive whatever order the interpreter is torn down in.
struct Keys {
    PyObject* abstractMeta;
    PyObject* annotations;
    PyObject* axes;
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
    PyObject* mro;
    PyObject* ordinaryField;
    PyObject* origin;
    PyObject* paramsType;
    PyObject* partial;
    PyObject* path;
    PyObject* priority;
    PyObject* searchPath;
    PyObject* traitsModule;
    PyObject* traitType;
    PyObject* wrapped;
};

/// Without memory for them the interpreter cannot go on, and ends the process.
const Keys& keys() noexcept;

}  // namespace python_host
