#include "contextdata/workspace_methods.h"

#include <set>

#include "contextdata/exclusion_tables.h"
#include "contextdata/introspection.h"
#include "contextdata/member_names.h"
#include "contextdata/values.h"

namespace {

constexpr int nonStaticMethods = -1;

bool isQualified(const std::u16string& name) { return name.find(u'.') != std::u16string::npos; }

}  // namespace

std::vector<std::u16string> getMethodsForWSVariable(const std::u16string& name, const qxSharedArray& value,
                                                    std::int32_t selector) {
    std::vector<std::u16string> methods;
    std::set<std::u16string> excluded;
    if (zelk::COSClass* cls = ZELKIntrospection::getCOSClass(value.get())) {
        ZELKIntrospection::getClassMethodNames(cls, methods, nonStaticMethods, selector);
    } else {
        getOpaqueObjectMethods(value.get(), methods);
        excluded = ZELKContextData::getZELKMethodsExcludeSet();
    }
    std::erase_if(methods, [&](const std::u16string& method) {
        return method == name || excluded.contains(method) || isQualified(method);
    });
    return methods;
}
