// What a question gave, as text that a table can hold.
#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <unordered_set>
#include <vector>

#include "contextdata/argument_block_metadata.h"
#include "contextdata/class_info.h"
#include "host/array_library.h"
#include "host/class_system.h"

namespace faults {

std::string told(bool answer);
std::string told(std::int32_t number);
std::string told(const std::string& text);
std::string told(const std::u16string& text);
std::string told(const std::vector<std::u16string>& texts);
std::string told(const std::set<std::u16string>& texts);
std::string told(const std::unordered_set<std::u16string>& texts);
std::string told(const std::vector<std::uint64_t>& numbers);

/// "nothing" where there is none.
std::string told(const zelk::COSClass* cls);
std::string told(zelk::COSInterface* node);
std::string told(const ZELKContextData::ResolvedClassID& id);
std::string told(const qxUniqueArray& value);
std::string told(const qxSharedArray& value);

std::string told(const ZELKContextData::ResolvedClassID::DebuggerFocus& focus);
std::string told(const ZELKContextData::ResolvedClassID::BadClassNameException& exception);
std::string told(const ZELKContextData::ArgumentBlockMetadata& metadata);

/// The tree of names: "Leaf(Root)"; a dash for an unknown class.
std::string told(const ZELKContextData::ClassInfo& cls);
std::string told(const ZELKContextData::ClassStructureInfo& structure);
std::string told(const ZELKContextData::AttributeInfo& attributes);
std::string told(const std::vector<ZELKContextData::MethodInfo>& methods);
std::string told(const std::vector<ZELKContextData::PropertyInfo>& properties);

}  // namespace faults
