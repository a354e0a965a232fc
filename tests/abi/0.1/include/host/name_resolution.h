// Name resolution: from a name as somebody wrote it to the full name of a class, and back.
//
// A full name may carry a software-package qualification in front of the dotted name of the class. Its grammar
// is the host's alone; the library only asks for it to be recognised and removed.
#pragma once

#include <string>
#include <string_view>

#include "host/visibility.h"

class FunctionScope;

namespace zelk::nameresolution {

/// Answers the full name of the class that `name` denotes in code of `scope`, or an empty text when it denotes
/// none there.
///
/// `scope` is borrowed and may be null: code outside any function scope. Interpreter thread. May throw any host
/// failure or the interrupt.
CONTEXTDATA_HOST_API std::string omResolveAnyClass(const std::string& name, const FunctionScope* scope);

/// Answers `fullName` without its software-package qualification; a name without one comes back unchanged.
///
/// Pure text work: the class need not exist. Any thread. May throw `std::bad_alloc`.
CONTEXTDATA_HOST_API std::string getBaseClassNameFromFullName(std::string_view fullName);

/// Answers whether `name` carries a software-package qualification. Pure text work, any thread, never throws.
CONTEXTDATA_HOST_API bool isSoftwarePackageQualifiedName(std::string_view name) noexcept;

}  // namespace zelk::nameresolution
