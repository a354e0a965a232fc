// The public names that a dictionary of names binds.
#pragma once

#include <pybind11/pybind11.h>

#include <cstddef>
#include <vector>

#include "frontends/completion/item.h"
#include "frontends/python/src/python_text.h"

namespace contextdata::python {

/// In the dictionary's order, each with the kind that `kindOf` tells of what it is bound to. None when `dictionary` is
/// null or no dictionary. `kindOf` makes no Python objects: the collector might then change the dictionary.
template <class KindOf>
std::vector<completion::Item> publicBindings(PyObject* dictionary, KindOf kindOf) {
    std::vector<completion::Item> items;
    if (dictionary == nullptr || !PyDict_Check(dictionary)) {
        return items;
    }
    items.reserve(static_cast<std::size_t>(PyDict_GET_SIZE(dictionary)));
    Py_ssize_t position = 0;
    PyObject* key = nullptr;
    PyObject* value = nullptr;
    while (PyDict_Next(dictionary, &position, &key, &value) != 0) {
        if (isPublicName(key)) {
            items.push_back({utf16Of(key, PyUnicode_GET_LENGTH(key)), kindOf(value)});
        }
    }
    return items;
}

}  // namespace contextdata::python
