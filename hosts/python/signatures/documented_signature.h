// Signatures that are written for people alone, as numeric libraries in C do.
#pragma once

#include <optional>
#include <string_view>

#include "hosts/python/signatures/signatures.h"

namespace python_host {

/// What the first paragraph of a documentation such as "f(a, [b,] c=1, *, d=None) -> value" says of the function, whose
/// name may stand behind that of an object and a dot. What has a default, or stands behind the star, may be named by
/// callers; of the rest nobody knows, so it counts as positional only. Nothing when the paragraph is no call of the
/// function, or holds what cannot be told apart.
///
/// Such a text promises nothing: it is for functions that have no other signature and take keywords at all.
std::optional<Signature> documentedSignatureOf(std::string_view documentation, std::string_view function);

}  // namespace python_host
