// What a live module offers behind a dot, which is not quite what it holds as a namespace.
#pragma once

#include <pybind11/pybind11.h>

#include <span>
#include <string_view>

#include "frontends/completion/item.h"
#include "frontends/completion/ranking.h"
#include "frontends/completion/subject.h"
#include "host/array_library.h"

namespace contextdata::python {

/// The public names that a module binds.
///
/// As a namespace it holds its modules on disk as well, which cannot be read until they are imported; and a module
/// that is not loaded under its name is no namespace at all, yet binds names like any other. So the module's dict is
/// read, and a module of a special type is asked for its properties as well. `value` stands for `module`.
completion::Items membersOfModule(const qxSharedArray& value, PyObject* module);

/// The modules with which an import statement may begin that are of a choice.
completion::Items outermostModules(const completion::Choice& choice);

/// Leaves the modules out that custom calls private: the class system knows no access of namespaces.
completion::Items withoutPrivateModules(completion::Items items);

/// The public names that the loaded module of a dotted name binds; none when no module is loaded under it. Imports
/// nothing.
completion::Items boundNames(std::span<const std::u16string_view> module);

/// Whether a chain names a module that could be imported and is not.
bool isUnloadedModule(std::span<const std::u16string_view> chain);

/// What a chain names that begins with no variable: a class, or a module that is loaded. A module that is not has a
/// name for statements that import, and for no other code.
completion::Subject namedInSession(std::span<const std::u16string_view> chain);

}  // namespace contextdata::python
