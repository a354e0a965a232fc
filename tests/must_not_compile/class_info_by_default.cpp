// A class of nothing is for derived classes to fill.
// misuse: protected
#include "contextdata/class_info.h"

struct Own : ZELKContextData::ClassInfo {};

void use() {
#ifdef MISUSE
    const ZELKContextData::ClassInfo cls;
#else
    const Own cls;
#endif
    static_cast<void>(cls);
}
