// Classes of other object systems, such as Java's: none.
#include "host/array_library.h"

qxUniqueArray qxCreateClassArray(const char* /*className*/) { return nullptr; }
qxUniqueArray qxFindClassMember(const qxArray* /*value*/, const char* /*memberName*/) { return nullptr; }
