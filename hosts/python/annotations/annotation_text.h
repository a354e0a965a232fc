// Annotations as short texts.
#pragma once

#include <string>

#include "hosts/python/annotations/annotation_term.h"

namespace python_host {

/// What a term says, as people write it: "list[int]", "int | None". Classes go by their canonical names, those of the
/// builtins by their own. Never longer than `bounded` allows.
std::string shortTextOf(const AnnotationTerm& term);

/// The text itself, or its beginning and "..." when it is longer than 200 bytes.
std::string bounded(std::string text);

}  // namespace python_host
