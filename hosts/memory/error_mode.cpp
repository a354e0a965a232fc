#include "host/error_mode.h"

#include "hosts/memory/watch.h"
#include "hosts/memory/world_state.h"

qxErrorMode getErrorMode() {
    memory_host::enter(memory_host::Service::getErrorMode);
    return memory_host::currentWorld().errorMode;
}

void setErrorMode(qxErrorMode mode) noexcept {
    memory_host::note(memory_host::Service::setErrorMode);
    memory_host::standingWorld->errorMode = mode;
}
