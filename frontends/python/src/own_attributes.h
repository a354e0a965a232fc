// The attributes of an object's own, for its description.
#pragma once

#include <pybind11/pybind11.h>

#include <string>
#include <vector>

#include "contextdata/resolved_class_id.h"
#include "frontends/completion/class_description.h"
#include "host/array_library.h"

namespace contextdata::python {

struct OwnAttribute {
    std::u16string name;
    const char* access = "public";  ///< permanent
};

/// What an object, which a live object stands behind, has beyond its class: its attributes, those that custom conceals
/// included, and what its `__dir__` adds. `cls` is its class. May run that hook; the interrupt passes.
std::vector<OwnAttribute> ownAttributes(const qxSharedArray& value, const ZELKContextData::ResolvedClassID& cls);

/// Those that the class does not describe, sorted, each name once, as members (description_objects.h).
pybind11::tuple attributeObjects(std::vector<OwnAttribute> attributes, const completion::ClassDescription& ofClass);

}  // namespace contextdata::python
