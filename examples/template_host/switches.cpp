// Two switches of the session.
#include "host/error_mode.h"
#include "host/feature.h"

// Whether class names mean what the file that mentions them says. On, once `omResolveAnyClass` knows scopes.
bool ComponentFeature::IsOn() { return false; }

// What becomes of errors that your array library meets. Until there are any, it is enough to remember.
namespace {
qxErrorMode errorMode{};
}
qxErrorMode getErrorMode() { return errorMode; }
void setErrorMode(qxErrorMode mode) noexcept { errorMode = mode; }
