// What visitors keep for the class information that owns them, and nobody else may read.
#pragma once

#include <vector>

#include "contextdata/class_info.h"

namespace visitor_insides {

const std::vector<ZELKContextData::MethodInfo>& collectedOf(const ZELKContextData::MethodVisitorMutable& visitor);
const std::vector<ZELKContextData::MethodInfo>& hiddenOf(const ZELKContextData::MethodVisitorMutable& visitor);
const std::vector<ZELKContextData::PropertyInfo>& collectedOf(const ZELKContextData::PropertyVisitorMutable& visitor);
const std::vector<ZELKContextData::PropertyInfo>& hiddenOf(const ZELKContextData::PropertyVisitorMutable& visitor);

/// The visitors that a class information owns.
const ZELKContextData::MethodVisitorMutable& methodVisitorOf(const ZELKContextData::ClassInfo& cls);
const ZELKContextData::PropertyVisitorMutable& propertyVisitorOf(const ZELKContextData::ClassInfo& cls);

/// Where the fields stand, in the order in which they are documented.
std::vector<const void*> fieldsOf(const ZELKContextData::MethodVisitorMutable& visitor);
std::vector<const void*> fieldsOf(const ZELKContextData::PropertyVisitorMutable& visitor);
std::vector<const void*> fieldsOf(const ZELKContextData::ClassInfo& cls);

}  // namespace visitor_insides
