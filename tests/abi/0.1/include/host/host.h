// Which host serves this process.
#pragma once

#include "host/visibility.h"

namespace host {

/// Names the host that answers the calls declared beside this header ("memory", "python", ...).
///
/// A process holds one host. The text is zero-terminated and lives as long as the process. Never null, never
/// throws, any thread.
CONTEXTDATA_HOST_API const char* host_name() noexcept;

}  // namespace host
