// Annotations that were written, or are kept, as text.
#pragma once

#include <optional>
#include <string_view>

#include "hosts/python/annotations/annotation_reader.h"
#include "hosts/python/annotations/annotation_term.h"

namespace python_host {

/// What a text says as an annotation: dotted names, brackets, `|`, strings and constants. Names are found in the
/// reader's scope; one that leads nowhere stands for itself, with its brackets. Nothing when the text is anything else,
/// or too long. Nothing is evaluated.
std::optional<AnnotationTerm> parseAnnotation(std::string_view text, AnnotationReader& reader);

}  // namespace python_host
