// Class objects belong to the registry of the class system.
// misuse: (protected|is inaccessible)
#include "host/class_system.h"

const char* use(zelk::COSClass* cls) {
#ifdef MISUSE
    delete cls;
#endif
    return cls->getName();
}
