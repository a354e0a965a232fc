// Signatures of functions in C, which stand as text at the head of their documentation.
#pragma once

#include <optional>
#include <string_view>

#include "hosts/python/signatures/signatures.h"

namespace python_host {

/// The signature at the head of a documentation such as "f($self, a, b=1, /, *, c)\n--\n\nText", without the object
/// that the function is bound to. `function` is the name of the function, perhaps with its module's in front. Nothing
/// when there is no signature of that function, or one that Python could not read either.
std::optional<Signature> textSignatureOf(std::string_view documentation, std::string_view function);

}  // namespace python_host
