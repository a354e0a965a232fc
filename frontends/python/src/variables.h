// The variables that a text may name: those of a namespace, then the built-in ones.
#pragma once

#include <pybind11/pybind11.h>

#include <string>
#include <string_view>

#include "frontends/completion/subject.h"
#include "hosts/python/python_host.h"

namespace contextdata::python {

/// The value of a name in a dictionary, borrowed from it, of a subclass's what it stores; null when there is none. Runs
/// nobody's code, whatever the keys are.
PyObject* findName(PyObject* dictionary, std::u16string_view name);

/// Reads a workspace for the length of one call.
class Variables final : public completion::Workspace {
public:
    /// `workspace` outlives this.
    explicit Variables(const python_host::CurrentWorkspace& workspace) noexcept : workspace_(workspace) {}

    qxSharedArray find(const std::u16string& name) override;

private:
    const python_host::CurrentWorkspace& workspace_;
};

}  // namespace contextdata::python
