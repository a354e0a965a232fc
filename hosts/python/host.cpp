#include "host/host.h"

const char* host::host_name() noexcept { return "python"; }
