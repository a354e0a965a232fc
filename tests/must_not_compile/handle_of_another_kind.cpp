// A node is no walk: handles hold what they say.
// misuse: no (match for 'operator='|viable overloaded '=')
#include "host/class_system.h"

void use(zelk::COSInterface* node, zelk::COSIterator* walk) {
    zelk::COSIteratorPtr handle;
#ifdef MISUSE
    static_cast<void>(walk);
    handle = node;
#else
    static_cast<void>(node);
    handle = walk;
#endif
}
