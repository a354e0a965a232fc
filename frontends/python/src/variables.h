// The variables that a text may name: those of a namespace, then the built-in ones.
#pragma once

#include <pybind11/pybind11.h>

#include <string>
#include <string_view>

#include "frontends/completion/subject.h"

namespace contextdata::python {

/// The value of a name in an exact dict or a module's, borrowed from it; null when there is none. Runs nobody's code,
/// whatever the keys are.
PyObject* findName(PyObject* dictionary, std::u16string_view name);

/// Reads a dict for the length of one call.
class Variables final : public completion::Workspace {
public:
    /// `variables` is an exact dict, borrowed.
    explicit Variables(PyObject* variables) noexcept : variables_(variables) {}

    qxSharedArray find(const std::u16string& name) override;

private:
    PyObject* variables_;
};

}  // namespace contextdata::python
