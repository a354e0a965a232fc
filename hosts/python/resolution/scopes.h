// Places in code from which names are resolved.
#pragma once

#include <Python.h>

#include <string_view>

#include "hosts/python/references.h"

/// What the code of one place sees.
class FunctionScope {
public:
    FunctionScope(const FunctionScope&) = delete;
    FunctionScope& operator=(const FunctionScope&) = delete;
    virtual ~FunctionScope() = default;

    /// Whether the code binds the name at all, so that a built-in of that name is hidden from it.
    virtual bool binds(std::string_view name) const = 0;

    /// The live object that a dotted name denotes there; empty when it denotes none, or none that is loaded.
    virtual python_host::Ref resolve(std::string_view dotted) const = 0;

protected:
    FunctionScope() = default;
};

namespace python_host {

/// The names of a dictionary of globals.
class GlobalsScope final : public FunctionScope {
public:
    explicit GlobalsScope(Ref globals) noexcept : globals_(std::move(globals)) {}

    bool binds(std::string_view name) const override;
    Ref resolve(std::string_view dotted) const override;

private:
    Ref globals_;
};

/// The names of a loaded module, which is known weakly.
class ModuleScope final : public FunctionScope {
public:
    explicit ModuleScope(Ref weakModule) noexcept : weakModule_(std::move(weakModule)) {}

    /// The module, borrowed; null once it is gone.
    PyObject* module() const noexcept;

    bool binds(std::string_view name) const override;
    Ref resolve(std::string_view dotted) const override;

private:
    Ref weakModule_;
};

}  // namespace python_host
