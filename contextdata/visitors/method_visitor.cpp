#include "contextdata/method_visitor.h"

#include <string>
#include <string_view>

#include "contextdata/class_info.h"
#include "contextdata/visitors/access.h"
#include "contextdata/visitors/position.h"
#include "host/i18n.h"

namespace ZELKContextData {

using namespace contextdata::visitors;

namespace {

/// A constructor bears the last part of its class's name.
bool isConstructor(std::string_view methodName, std::string_view className) {
    if (!className.ends_with(methodName)) {
        return false;
    }
    const std::string_view qualifier = className.substr(0, className.size() - methodName.size());
    return qualifier.empty() || qualifier.ends_with('.');
}

MethodInfo recordOf(std::string_view name, std::string_view definingClass, const zelk::COSMethodInfo& method) {
    return {fl::i18n::to_ustring(name), fl::i18n::to_ustring(definingClass), method.isStatic()};
}

}  // namespace

MethodVisitorMutable::MethodVisitorMutable(const ClassInfo* visitedClass)
    : visitedClass_(visitedClass), accessibility_{zelk::publicAccess} {}

MethodVisitorMutable::~MethodVisitorMutable() = default;

void MethodVisitorMutable::clear() {
    collected_.clear();
    hidden_.clear();
}

void MethodVisitorMutable::clear(const MethodInfo::GetOptions& options) {
    clear();
    accessibility_ = options.accessibility;
    accessingClass_ = options.accessingClass;
    context_ = options.context;
    includeConstructors_ = options.includeConstructors;
    includeOperatorOverloads_ = options.includeOperatorOverloads;
    includeHidden_ = options.includeHidden;
}

void MethodVisitorMutable::visit(zelk::COSInterface* node) {
    const zelk::COSInterfacePtr handle(node);
    visit(handle, zelk::cosiToMethod(node));
}

// The handle comes by value: whoever overrides this may keep it.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
void MethodVisitorMutable::visit(zelk::COSInterfacePtr handle, zelk::COSMethodInfo* method) {
    if (method == nullptr) {
        return;
    }
    const std::string_view name = method->getName();
    const zelk::COSInternedID definingClass = declarerOf(handle);
    if (!isDeclaredBy(definingClass, *visitedClass_) || !isAccessible(method)) {
        return;
    }
    if (!includeHidden_ && method->getVisibility() != zelk::shownVisibility) {
        hidden_.push_back(recordOf(name, definingClass.view(), *method));
        return;
    }
    if (!isOfferedAt(context_, definingClass)) {
        return;
    }
    if (!includeConstructors_ && isConstructor(name, definingClass.view())) {
        return;
    }
    if (!includeOperatorOverloads_ && MethodInfo::isOperatorOverload(std::string(name))) {
        return;
    }
    collected_.push_back(recordOf(name, definingClass.view(), *method));
}

bool MethodVisitorMutable::isAccessible(zelk::COSMethodInfo* method) const {
    return isAmong(accessibility_, method->getAccess()) || hasAccessingClass(method);
}

bool MethodVisitorMutable::hasAccessingClass(zelk::COSMethodInfo* method) const {
    return accessingClass_ != nullptr && isOn(method->getAccessList(), *accessingClass_);
}

}  // namespace ZELKContextData
