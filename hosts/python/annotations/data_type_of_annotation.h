// From what an annotation says to a data type.
#pragma once

#include <string>
#include <vector>

#include "hosts/python/annotations/annotation_term.h"
#include "hosts/python/annotations/data_type.h"

namespace python_host {

/// The data type that a term stands for; empty when the term is no type. `limits` are demands made beside it.
zelk::COSDataTypePtr dataTypeOf(const AnnotationTerm& term, const std::vector<std::string>& limits);

}  // namespace python_host
