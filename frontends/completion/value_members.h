// The members of a value: what its class tells, and what only the value itself can tell.
#pragma once

#include <vector>

#include "contextdata/resolved_class_id.h"
#include "frontends/completion/item.h"
#include "frontends/completion/subject.h"
#include "host/array_library.h"

namespace contextdata::completion {

/// The class by which a value's members are listed: the class of an object, else the class that the value names
/// when asked. Null when there is none. The value is not null.
ZELKContextData::ResolvedClassID classOf(const qxArray* value);

/// The names that the value itself gives: its properties, marked as fields where they are fields of a structure.
///
/// In the value's own order; they may repeat each other and names of its class. Nothing may keep them: a value
/// changes without telling. The value is not null. The interrupt passes; a failure is no names.
std::vector<Item> ownMembers(const qxArray* value);

/// The members of a value whose class is unknown: what it answers for its methods, properties and fields.
Items membersWithoutClass(const qxArray* value);

/// All members of a subject; empty for `nothing`.
Items membersOf(const Subject& subject);

/// The same for the code of a class, null for nobody's, which is offered more (insider_members.h). What everybody is
/// offered comes as everybody gets it.
Items membersOf(const Subject& subject, const ZELKContextData::ResolvedClassID& asker);

}  // namespace contextdata::completion
