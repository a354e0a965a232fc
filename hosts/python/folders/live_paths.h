// From a dotted name to the live object that it names, through module and type dictionaries only.
#pragma once

#include <Python.h>

#include <string>
#include <string_view>
#include <vector>

#include "hosts/python/references.h"

namespace python_host {

/// What a name denotes inside a module or a class; borrowed, null when it denotes nothing there or when `container`
/// is neither. Submodules are found although the package's dictionary lacks them.
PyObject* memberOf(PyObject* container, std::string_view name);

/// Walks a dotted name from an object on; an empty name is the object itself. Borrowed, null when it leads nowhere.
PyObject* walkPath(PyObject* start, std::string_view dotted);

/// The object of a full name: the longest prefix that is a loaded module, and on from there. Borrowed, or null.
PyObject* findPath(std::string_view dotted);

/// The part before the first dot, and what follows that dot.
struct SplitName {
    std::string_view first;
    std::string_view rest;
};
SplitName splitFirst(std::string_view dotted) noexcept;

}  // namespace python_host
