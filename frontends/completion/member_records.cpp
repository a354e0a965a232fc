#include "frontends/completion/member_records.h"

#include <string>
#include <unordered_set>

#include "frontends/completion/ask.h"

namespace contextdata::completion {

using ZELKContextData::ClassInfo;
using ZELKContextData::MethodInfo;
using ZELKContextData::PropertyInfo;

namespace {

template <class Record>
std::vector<Record> onlyThoseFrom(const ClassInfo& one, const Declarations& declarations, std::vector<Record> records) {
    std::unordered_set<std::u16string> seen;
    std::erase_if(records, [&](const Record& record) {
        const Declaration* declaration = declarations.find(record.name);
        const bool isFromThere = declaration != nullptr && declaration->declarer == one.getSuperclassInfo().classID;
        return !isFromThere || !seen.insert(record.name).second;
    });
    return records;
}

}  // namespace

std::vector<MethodInfo> methodsFrom(const ClassInfo& one, const Declarations& declarations,
                                    MethodInfo::GetOptions options) {
    options.context = MethodInfo::GetContext::anyPosition;
    // The declarations know the constructors better: a class may have methods of its own name that are none.
    options.includeConstructors = true;
    return unlessItFails([&] { return onlyThoseFrom(one, declarations, one.getMethods(options)); });
}

std::vector<PropertyInfo> propertiesFrom(const ClassInfo& one, const Declarations& declarations,
                                         const PropertyInfo::GetOptions& options) {
    return unlessItFails([&] { return onlyThoseFrom(one, declarations, one.getProperties(options)); });
}

}  // namespace contextdata::completion
