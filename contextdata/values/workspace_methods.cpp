#include "contextdata/workspace_methods.h"

#include <set>

#include "contextdata/exclusion_tables.h"
#include "contextdata/introspection.h"
#include "contextdata/member_names.h"
#include "contextdata/values.h"

namespace {

constexpr int nonStaticMethods = -1;

bool isOperator(const std::u16string& name) {
    // A copy of our own: the table is handed out by value, which is dearer than all the look-ups.
    static const std::set<std::u16string> operators = ZELKContextData::getZELKMethodsExcludeSet();
    return operators.contains(name);
}

bool isQualified(const std::u16string& name) { return name.find(u'.') != std::u16string::npos; }

}  // namespace

std::vector<std::u16string> getMethodsForWSVariable(const std::u16string& name, const qxSharedArray& value,
                                                    std::int32_t selector) {
    std::vector<std::u16string> methods;
    zelk::COSClass* cls = ZELKIntrospection::getCOSClass(value.get());
    const bool isForeign = cls == nullptr;
    if (!isForeign) {
        ZELKIntrospection::getClassMethodNames(cls, methods, nonStaticMethods, selector);
    } else {
        getOpaqueObjectMethods(value.get(), methods);
    }
    std::erase_if(methods, [&](const std::u16string& method) {
        return method == name || (isForeign && isOperator(method)) || isQualified(method);
    });
    return methods;
}
