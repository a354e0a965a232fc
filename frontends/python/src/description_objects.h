// A description of a class as plain Python objects.
#pragma once

#include <pybind11/pybind11.h>

#include <string>

#include "frontends/completion/class_description.h"

namespace contextdata::python {

/// (name, superclasses, attributes, enumeration members, constants, properties, static methods, methods), where
/// a superclass is (name, superclasses, repeated, cut),
/// attributes are four tuples of names: on classes, properties, methods, events,
/// a member is (name, access, definer), and
/// a property is (name, access, definer, type, sizes, validators, values, read only, custom getter, stored).
/// What is not known is None.
pybind11::tuple objectsOf(const completion::ClassDescription& description);

/// One member, as above, of no known definer.
pybind11::tuple memberObject(const std::u16string& name, const char* access);

}  // namespace contextdata::python
