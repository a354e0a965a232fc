// What the notes about a type demand of a value.
#pragma once

#include <string>
#include <vector>

#include "hosts/python/annotations/annotation_term.h"

namespace python_host {

/// The names of the checks among the notes of an annotated type, in their order: a function by its name, a class by its
/// own, any other object by that of its class, with what a data class keeps of plain values: "Gt(gt=0)". Constants
/// and tuples check nothing.
std::vector<std::string> validatorsOf(const AnnotationTerm& annotated);

}  // namespace python_host
