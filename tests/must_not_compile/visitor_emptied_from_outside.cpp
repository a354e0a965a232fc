// Emptying the lists without new options is for visitors that derive from these.
// misuse: (no matching (member )?function|'?clear'? is a protected member|is protected)
#include "contextdata/method_visitor.h"

void use(ZELKContextData::MethodVisitorMutable& visitor) {
#ifdef MISUSE
    visitor.clear();
#else
    visitor.clear(ZELKContextData::MethodInfo::GetOptions());
#endif
}
