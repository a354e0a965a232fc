// Attributes that are declared by a trait: a descriptor whose class tells what it holds.
#pragma once

#include <Python.h>

#include <optional>

#include "hosts/python/annotations/annotation_term.h"

namespace python_host {

/// The type that a trait declares; for a trait of a kind that is not known, the class of the trait itself.
std::optional<AnnotationTerm> typeOfTrait(PyObject* trait);

}  // namespace python_host
