// The type that a class declares for an attribute.
#pragma once

#include <Python.h>

#include "host/data_types.h"
#include "host/interned.h"

namespace python_host {

/// What the values of an attribute may be, as the class itself declares it: by an annotation of the name, that of a
/// property's result, a data class's or a model's field, or a trait; the first of them that says something decides, and
/// the limits of a field or a trait are added. Read anew at each call; empty when nothing is declared.
zelk::COSDataTypePtr declaredTypeOf(PyTypeObject* declarer, zelk::COSInternedID name);

}  // namespace python_host
