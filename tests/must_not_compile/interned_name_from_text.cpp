// Only the host makes handles to interned names: two handles of one text would differ.
// misuse: (private constructor|private within this context)
#include "host/interned.h"

zelk::COSInternedID use() {
#ifdef MISUSE
    return zelk::COSInternedID("bank.Account");
#else
    return zelk::internal::makeInterned("bank.Account");
#endif
}
