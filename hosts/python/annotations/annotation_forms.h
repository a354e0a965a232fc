// What stands before brackets, applied to what stands within them.
#pragma once

#include <optional>
#include <vector>

#include "hosts/python/annotations/annotation_term.h"

namespace python_host {

/// Whether a special form is a type without arguments.
bool standsAlone(const std::string& form);

/// The meaning of `head[arguments]`: a generic class, a special form, or an alias with type variables to be replaced.
/// Nothing when the arguments do not fit the head.
std::optional<AnnotationTerm> applyArguments(const AnnotationTerm& head, std::vector<AnnotationTerm> arguments,
                                             AnnotationBudget& budget);

}  // namespace python_host
