// An owned value has one owner.
// misuse: (use of deleted function|call to deleted constructor|call to implicitly-deleted)
#include <utility>

#include "host/array_library.h"

qxUniqueArray use(qxUniqueArray& value) {
#ifdef MISUSE
    return value;
#else
    return std::move(value);
#endif
}
