// The names that an annotation may use, found by look-ups in dictionaries alone.
#pragma once

#include <Python.h>

#include <string_view>

#include "hosts/python/references.h"

namespace python_host {

class AnnotationScope {
public:
    /// The scope of what a class declares: its own classes, then the names of its module, then the builtins.
    explicit AnnotationScope(PyTypeObject* declarer);

    /// The same with the names that a function sees in place of those of the class's module.
    AnnotationScope(PyTypeObject* declarer, PyObject* globals);

    /// What a dotted name stands for; empty when it leads nowhere. Nothing is imported and no attribute is asked.
    Ref find(std::string_view dotted) const;

private:
    Ref findFirst(std::string_view name) const;

    Ref declarer_;
    Ref globals_;
};

}  // namespace python_host
