#include "contextdata/member_names.h"

#include <algorithm>

#include "contextdata/introspection.h"
#include "contextdata/introspection/class_lookup.h"
#include "contextdata/introspection/method_name_visitor.h"
#include "contextdata/introspection/property_name_visitor.h"

namespace ZELKIntrospection {

const DesiredPropertyAttributes leftHandSideDesiredPropertyAttributes = {2, 0, 1, 1};
const DesiredPropertyAttributes rightHandSideDesiredPropertyAttributes = {0, 2, 2, 1};
const DesiredPropertyAttributes eitherSideDesiredPropertyAttributes = {2, 2, 2, 1};

namespace {

/// Room for a class of usual size, so that most listings allocate the vector once.
constexpr std::size_t usualCount = 32;

bool isStaticSelection(int selection) { return selection >= -1 && selection <= 1; }

}  // namespace

void getClassMethodNames(zelk::COSClass* cls, std::vector<std::u16string>& names, int staticSelection,
                         int methodFlagSelection) {
    if (!contextdata::introspection::isDefined(cls) || !isStaticSelection(staticSelection)) {
        return;
    }
    names.reserve(usualCount);
    ZELKMethodNameVisitor visitor(names, staticSelection, methodFlagSelection);
    cls->visitMethods(visitor);
}

void getClassPropertyNames(zelk::COSClass* cls, std::vector<std::u16string>& names,
                           const DesiredPropertyAttributes& desired) {
    names.reserve(usualCount);
    ZELKPropertyNameVisitor visitor(names, nullptr, desired);
    cls->visitProperties(visitor);
}

void getObjectPropertyNames(const qxArray* value, std::vector<std::u16string>& names) {
    if (callFunctionOnObject(value, "properties", names)) {
        return;
    }
    if (zelk::COSClass* cls = getCOSClass(value)) {
        getClassPropertyNames(cls, names, eitherSideDesiredPropertyAttributes);
    }
}

}  // namespace ZELKIntrospection
