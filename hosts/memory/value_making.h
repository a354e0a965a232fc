// Making values.
#pragma once

#include <string_view>
#include <vector>

#include "hosts/memory/value.h"

namespace memory_host {

qxUniqueArray makeValue(qxClassID id, std::string_view className, std::vector<std::size_t> dimensions);

/// A char row.
qxUniqueArray makeText(std::u16string_view text);

qxUniqueArray makeLogical(bool value);

/// One more claim on a value, which may be null.
qxUniqueArray sharedClaim(const qxArray* value) noexcept;

}  // namespace memory_host
