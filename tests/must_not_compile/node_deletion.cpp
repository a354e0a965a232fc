// Nodes are counted; who wants to be rid of one lets its handle go.
// misuse: (protected|is inaccessible)
#include "host/class_system.h"

void use(zelk::COSInterfacePtr& node) {
#ifdef MISUSE
    delete node.get();
#else
    node.reset();
#endif
}
