// The error mode. Errors of this host are exceptions and statuses, which nobody shows or keeps in any mode, so the mode
// is remembered for those who set it and put it back.
#include "host/error_mode.h"

namespace {

/// Each thread's own: two threads that save and restore it in turn would leave it as neither found it.
thread_local qxErrorMode currentMode = static_cast<qxErrorMode>(0);

}  // namespace

qxErrorMode getErrorMode() { return currentMode; }

void setErrorMode(qxErrorMode mode) noexcept { currentMode = mode; }
