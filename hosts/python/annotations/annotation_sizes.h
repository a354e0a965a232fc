// Sizes that annotations give to arrays.
#pragma once

#include <string>
#include <vector>

#include "hosts/python/annotations/annotation_term.h"

namespace python_host {

/// Whether a term is the array class, one that derives from it, or one of these with arguments.
bool isArrayType(const AnnotationTerm& term);

/// The dimensions of an array type, one text each: a number, ":" or a name; none when its shape is open. Notes about
/// the type, such as `(3, None)` or "n m", go before its own shape. `term` may be any type.
std::vector<std::string> dimensionsOf(const AnnotationTerm& term);

}  // namespace python_host
