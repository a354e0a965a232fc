#include "contextdata/workspace.h"

DisableErrorMode::DisableErrorMode() : savedMode_(getErrorMode()) { setErrorMode(qxErrorMode::disabled); }

DisableErrorMode::~DisableErrorMode() { setErrorMode(savedMode_); }
