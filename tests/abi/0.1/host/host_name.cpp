// The first thing to change: the name by which programs know that they run on your host.
#include "host/host.h"

const char* host::host_name() noexcept { return "template"; }
