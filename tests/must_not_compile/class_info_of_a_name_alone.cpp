// A name means something in a file only.
// misuse: no matching (function for call to|conversion for functional-style cast)
#include "contextdata/class_info.h"

ZELKContextData::ClassInfo classOf(const std::u16string& file, const std::u16string& name) {
#ifdef MISUSE
    static_cast<void>(file);
    return ZELKContextData::ClassInfo(name);
#else
    return ZELKContextData::ClassInfo(file, name);
#endif
}
