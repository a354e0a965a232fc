// The attribute names that the host itself looks for, as interned str objects.
#pragma once

#include <Python.h>

namespace python_host {

/// Permanent: never released, so that they survive whatever order the interpreter is torn down in.
struct Keys {
    PyObject* annotations;
    PyObject* axes;
    PyObject* curframe;
    PyObject* dataclassFields;
    PyObject* dir;
    PyObject* doc;
    PyObject* enumType;
    PyObject* file;
    PyObject* final;
    PyObject* fields;
    PyObject* fset;
    PyObject* getattr;
    PyObject* getattribute;
    PyObject* initVar;
    PyObject* manager;
    PyObject* memberMap;
    PyObject* module;
    PyObject* moduleName;
    PyObject* mro;
    PyObject* origin;
    PyObject* path;
};

/// Without memory for them the interpreter cannot go on, and ends the process.
const Keys& keys() noexcept;

}  // namespace python_host
