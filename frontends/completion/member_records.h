// The records of what one class declares, as far as another class has it from there.
#pragma once

#include <vector>

#include "contextdata/class_info.h"
#include "frontends/completion/declarations.h"

namespace contextdata::completion {

/// The records of the members that `one`, a class of a lineage, declares and to which the options let the asker. Those
/// whose name stands for another class's member in `declarations`, or for none, are left out, and so are repeats of a
/// name. The context of the options plays no part. None when the host fails; the interrupt passes.
std::vector<ZELKContextData::MethodInfo> methodsFrom(const ZELKContextData::ClassInfo& one,
                                                     const Declarations& declarations,
                                                     ZELKContextData::MethodInfo::GetOptions options);
std::vector<ZELKContextData::PropertyInfo> propertiesFrom(const ZELKContextData::ClassInfo& one,
                                                          const Declarations& declarations,
                                                          const ZELKContextData::PropertyInfo::GetOptions& options);

}  // namespace contextdata::completion
