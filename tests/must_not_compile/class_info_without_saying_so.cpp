// Making class information walks a whole tree of classes; nobody does that by passing an identity.
// misuse: (invalid initialization of reference|no matching function for call to)
#include "contextdata/class_info.h"

bool isRoot(const ZELKContextData::ClassInfo& cls);

bool use(const ZELKContextData::ResolvedClassID& id) {
#ifdef MISUSE
    return isRoot(id);
#else
    return isRoot(ZELKContextData::ClassInfo(id));
#endif
}
