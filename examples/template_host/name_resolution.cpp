// Names of classes, as people write them.
#include "host/name_resolution.h"

namespace zelk::nameresolution {

// No name denotes a class yet: ask what your language says about imports and the file that the scope stands for.
std::string omResolveAnyClass(const std::string& /*name*/, const FunctionScope* /*scope*/) { return {}; }

// No name carries a software-package qualification: there may be none in your language, and then this stays.
std::string getBaseClassNameFromFullName(std::string_view fullName) { return std::string(fullName); }
bool isSoftwarePackageQualifiedName(std::string_view /*name*/) noexcept { return false; }

}  // namespace zelk::nameresolution
