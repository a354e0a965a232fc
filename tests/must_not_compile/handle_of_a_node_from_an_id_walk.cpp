// The two kinds of walk yield different things.
// misuse: (conversion from|no viable conversion from|cannot convert)
#include "host/class_system.h"

void use(zelk::COSIterator& nodes, zelk::COSIDIterator& ids) {
#ifdef MISUSE
    static_cast<void>(nodes);
    const zelk::COSInterfacePtr node = ids.nextElement();
#else
    static_cast<void>(ids);
    const zelk::COSInterfacePtr node = nodes.nextElement();
#endif
}
