// What the class system says of the type of a property, as plain data to compare.
#pragma once

#include <string>
#include <vector>

#include "tests/python_host/session.h"

namespace session {

struct DeclaredType {
    bool isDeclared = false;
    std::string id;
    bool isValidation = false;
    std::string className;  ///< of the validation
    Names sizes;
    Names validators;
    bool hasValueList = false;
    Names values;     ///< texts as they are, other values as they are converted
    Names converted;  ///< those of the values that had to be converted
};

/// The type of a class's property; a property that does not exist fails the test.
DeclaredType declaredType(const std::string& className, const std::string& name);

/// The same for a class `A` in `__main__`.
DeclaredType typeOf(const std::string& name);

/// The identifier alone; "<none>" when no type is declared.
std::string idOf(const std::string& name);

}  // namespace session
