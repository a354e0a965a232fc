// Where the value of a property comes from when the property is read.
#pragma once

#include <Python.h>

#include <cstdint>
#include <string_view>

#include "host/class_system.h"

namespace python_host {

enum class PropertyForm : std::uint8_t {
    stored,                  ///< an object's own dictionary, a slot, the class itself
    storedOnce,              ///< made by the author's code at the first reading, and kept
    storedByDescriptor,      ///< kept by a descriptor that may run code of its author besides
    computed,                ///< made by the author's code at each reading
    knownGetter,             ///< a getter in C that is known to run no code of a user
    descriptor,              ///< any other getter or descriptor
    descriptorWithoutGetter  ///< only assignment is the descriptor's
};

/// The form of a class attribute, told from its raw value's real type; nothing of the value is asked. `type` is the
/// class whose objects are read.
PropertyForm formOf(PyObject* value, PyTypeObject* type, std::string_view name);

/// What a form says about a property. Permanent.
const zelk::COSExtendedPropInfo& extendedRecordOf(PropertyForm form) noexcept;

}  // namespace python_host
