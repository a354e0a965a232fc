// The methods that may follow a workspace variable and a dot.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "contextdata/export.h"
#include "host/array_library.h"

/// Lists the methods of the value of a variable.
///
/// An object of the class system lists the non-static methods of its class; `selector` is the listability
/// selection of `ZELKIntrospection::getClassMethodNames`. Any other value is asked its own "methods" function, and
/// operator overloads are taken out of that answer. Names equal to `name` and names with a dot in them are left
/// out. Neither sorted nor de-duplicated. Empty for an empty handle. Host failures and the interrupt pass, save
/// those that the "methods" call swallows. Interpreter thread.
CONTEXTDATA_API std::vector<std::u16string> getMethodsForWSVariable(const std::u16string& name,
                                                                    const qxSharedArray& value, std::int32_t selector);
