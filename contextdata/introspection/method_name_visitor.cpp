#include "contextdata/introspection/method_name_visitor.h"

#include <string_view>
#include <utility>

namespace ZELKIntrospection {

namespace {

bool matchesStaticSelection(std::int32_t selection, const zelk::COSMethodInfo& method) {
    return selection == 0 || method.isStatic() == (selection == 1);
}

bool matchesFlagSelection(std::int32_t selection, const zelk::COSMethodInfo& method) {
    return selection == 0 || selection == (method.isListable() ? 1 : -1);
}

}  // namespace

ZELKMethodNameVisitor::ZELKMethodNameVisitor(std::vector<std::u16string>& names, std::int32_t staticSelection,
                                             std::int32_t methodFlagSelection)
    : names_(names), staticSelection_(staticSelection), methodFlagSelection_(methodFlagSelection), converter_(false) {}

/// A constructor bears the last part of its class's name; there is no other mark of one.
bool ZELKMethodNameVisitor::isConstructor(std::string_view methodName, zelk::COSInterface* method) {
    const zelk::COSClass* definingClass = zelk::cosiClassOfMember(method);
    if (definingClass == nullptr) {
        return false;
    }
    if (definingClass != definingClass_) {
        const std::string_view className = definingClass->getName();
        constructorName_ = className.substr(className.rfind('.') + 1);
        definingClass_ = definingClass;
    }
    return methodName == constructorName_;
}

bool ZELKMethodNameVisitor::accepts(const zelk::COSMethodInfo& method) const {
    return matchesStaticSelection(staticSelection_, method) && matchesFlagSelection(methodFlagSelection_, method) &&
           method.getAccess() == zelk::publicAccess;
}

void ZELKMethodNameVisitor::visit(zelk::COSInterface* member) {
    const zelk::COSMethodInfo* method = zelk::cosiToMethod(member);
    if (method == nullptr) {
        return;
    }
    const std::string_view name = method->getName();
    if (isConstructor(name, member)) {
        return;
    }
    std::u16string wideName = fl::i18n::to_ustring(name, converter_);
    const bool accepted = accepts(*method);
    // The first method of a name decides for all of them, so a rejected one is remembered as well.
    const bool firstSeen = seenNames_.insert(name, wideName);
    if (firstSeen && accepted) {
        names_.push_back(std::move(wideName));
    }
}

}  // namespace ZELKIntrospection
