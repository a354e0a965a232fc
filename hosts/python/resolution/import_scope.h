// The scope of a file that is not loaded.
#pragma once

#include <string_view>
#include <utility>

#include "hosts/python/resolution/import_statements.h"
#include "hosts/python/resolution/scopes.h"

namespace python_host {

/// Resolves names through what the file imports. Only what is loaded already can be found.
class ImportScope final : public FunctionScope {
public:
    void replace(Imports imports) { imports_ = std::move(imports); }

    bool binds(std::string_view name) const override;
    Ref resolve(std::string_view dotted) const override;

private:
    /// The loaded module that binds a name by being imported as a whole; borrowed, or null.
    PyObject* wholeImportOf(std::string_view name) const;

    Imports imports_;
};

}  // namespace python_host
