#include "contextdata/workspace_methods.h"

#include "contextdata/introspection.h"
#include "contextdata/member_names.h"
#include "contextdata/method_info.h"
#include "contextdata/values.h"

namespace {

constexpr int nonStaticMethods = -1;

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
        return method == name || (isForeign && ZELKContextData::MethodInfo::isOperatorOverload(method)) ||
               isQualified(method);
    });
    return methods;
}
