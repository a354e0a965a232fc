// What is said about a type beside it: the further arguments of `Annotated[...]`.
#pragma once

#include <Python.h>

#include <optional>
#include <string_view>

#include "hosts/python/annotations/annotation_scope.h"
#include "hosts/python/annotations/annotation_term.h"

namespace python_host {

/// A note as a term: a constant, a tuple, or an opaque object.
AnnotationTerm readNote(PyObject* object);

/// The same of source text. A call is kept as the text that it is; nothing for what is neither a constant nor a tuple
/// nor a name nor a call of one.
std::optional<AnnotationTerm> parseNote(std::string_view text, const AnnotationScope& scope);

}  // namespace python_host
