// What a class offers to the code of a certain class, beyond what it offers to everybody.
#pragma once

#include "contextdata/resolved_class_id.h"
#include "frontends/completion/item.h"

namespace contextdata::completion {

/// The members of `cls` that the code of `asker` may use and that are not public: those that their access lists open
/// to it, for reading or for writing, and the private ones that `asker` itself declares, when `cls` is that class or
/// derives from it.
///
/// What its author hides or does not let be listed stays out, and so do constructors and operator overloads; a public
/// member may be among the answers when an access list names the asker as well. Empty when either is no class. Depends
/// on nothing but the two classes. The interrupt passes; what the host fails at contributes nothing.
Items insiderMembersOf(const ZELKContextData::ResolvedClassID& cls, const ZELKContextData::ResolvedClassID& asker);

}  // namespace contextdata::completion
