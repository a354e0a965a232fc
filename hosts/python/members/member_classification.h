// What a class attribute is, told from its raw value's real type.
#pragma once

#include <Python.h>

#include <cstdint>

namespace python_host {

enum class MemberShape : std::uint8_t {
    method,
    staticMethod,
    property,          ///< read and assigned through a descriptor or a slot
    readOnlyProperty,  ///< a descriptor without a way to assign
    plainValue,        ///< a value that stands in the class itself
};

/// Classifies without touching an attribute of the value: no descriptor runs, no metaclass is asked.
MemberShape classify(PyObject* value);

/// Whether a plain value is of a built-in type whose objects never change.
bool isImmutableValue(PyObject* value) noexcept;

}  // namespace python_host
