// The members of a class and of all it derives from.
#include <algorithm>
#include <iterator>
#include <string_view>

#include "contextdata/class_info.h"
#include "contextdata/visitors/position.h"
#include "host/class_system.h"
#include "host/exceptions.h"

namespace ZELKContextData {

using foundation::core::except::InterruptException;
using zelk::COSClass;

namespace {

/// A class that derives from this one has no methods after a dot.
constexpr char16_t withoutDotMethods[] = u"ostrel.mixin.internal.indexing.DisallowCompletionOfDotMethodNames";

/// Lets the class system lead a visitor over the members that a class declares. False when the host fails at it; the
/// interrupt passes.
template <class Visitor>
bool visitOwnMembers(zelk::COSInternedID id, void (COSClass::*walk)(zelk::COSVisitor<zelk::COSInterface*>&),
                     Visitor& visitor) {
    try {
        COSClass* cls = COSClass::getClass(id);
        if (cls != nullptr && cls->getDefinition(false) != nullptr && !cls->withholdsOwnMembers()) {
            (cls->*walk)(visitor);
        }
        return true;
    } catch (const InterruptException&) {
        throw;
    } catch (...) {
        return false;
    }
}

/// A superclass is asked as by a stranger to what is private to it. One mention goes: a caller that names the code
/// twice insists.
template <class Options>
Options optionsForSuperclasses(const Options& options) {
    Options inherited = options;
    std::vector<std::int32_t>& access = inherited.accessibility;
    if (const auto found = std::find(access.begin(), access.end(), zelk::privateAccess); found != access.end()) {
        access.erase(found);
    }
    return inherited;
}

/// Removes from `members` those that share a name with one of `hiding`; the others stay in their order.
template <class Info>
void removeNamesakes(std::vector<Info>& members, const std::vector<Info>& hiding) {
    if (members.empty() || hiding.empty()) {
        return;
    }
    std::vector<std::u16string_view> names;
    names.reserve(hiding.size());
    std::transform(hiding.begin(), hiding.end(), std::back_inserter(names),
                   [](const Info& info) { return std::u16string_view(info.name); });
    std::sort(names.begin(), names.end());
    std::erase_if(members, [&](const Info& member) {
        return std::binary_search(names.begin(), names.end(), std::u16string_view(member.name));
    });
}

template <class Info>
void appendMoved(std::vector<Info>& target, std::vector<Info>&& source) {
    target.insert(target.end(), std::make_move_iterator(source.begin()), std::make_move_iterator(source.end()));
}

}  // namespace

const std::vector<std::int32_t>& ClassInfo::getDefaultAccessibility() const {
    static const std::vector<std::int32_t> access = {zelk::publicAccess};
    return access;
}

bool ClassInfo::offersMethodsIn(MethodInfo::GetContext context) const {
    return contextdata::visitors::isOfferedAt(context, structure_.classID) &&
           (context != MethodInfo::GetContext::afterDot || !isA(withoutDotMethods));
}

std::vector<MethodInfo> ClassInfo::getMethods(const MethodInfo::GetOptions& options) const {
    methodVisitor_.clear(options);
    if (structure_.classID.isEmpty() || !offersMethodsIn(options.context) ||
        !visitOwnMembers(structure_.classID, &COSClass::visitDeclaredMethods, methodVisitor_)) {
        return {};
    }
    std::vector<MethodInfo> methods = getMethodsOfSuperclasses(options);
    if (!options.includeHidden) {
        removeNamesakes(methods, methodVisitor_.hidden_);
    }
    methods.reserve(methods.size() + methodVisitor_.collected_.size());
    appendMoved(methods, std::move(methodVisitor_.collected_));
    return methods;
}

std::vector<MethodInfo> ClassInfo::getMethods(const std::vector<std::int32_t>& access,
                                              const MethodInfo::GetContext& context,
                                              const ClassInfo* accessingClass) const {
    MethodInfo::GetOptions options;
    options.accessibility = access;
    options.accessingClass = accessingClass;
    options.context = context;
    return getMethods(options);
}

std::vector<MethodInfo> ClassInfo::getMethodsOfSuperclasses(const MethodInfo::GetOptions& options) const {
    const MethodInfo::GetOptions inherited = optionsForSuperclasses(options);
    std::vector<MethodInfo> methods;
    for (const std::shared_ptr<ClassInfo>& superclass : structure_.superclasses) {
        appendMoved(methods, superclass->getMethods(inherited));
    }
    return methods;
}

std::vector<PropertyInfo> ClassInfo::getProperties(const PropertyInfo::GetOptions& options) const {
    propertyVisitor_.clear(options);
    if (!visitOwnMembers(structure_.classID, &COSClass::visitDeclaredProperties, propertyVisitor_)) {
        return {};
    }
    std::vector<PropertyInfo> properties = getPropertiesOfSuperclasses(options);
    removeNamesakes(properties, propertyVisitor_.collected_);
    if (!options.includeHidden) {
        removeNamesakes(properties, propertyVisitor_.hidden_);
    }
    const std::vector<PropertyInfo>& own = propertyVisitor_.collected_;
    properties.reserve(properties.size() + own.size());
    properties.insert(properties.end(), own.begin(), own.end());
    return properties;
}

std::vector<PropertyInfo> ClassInfo::getProperties(const std::vector<std::int32_t>& access,
                                                   const ClassInfo* accessingClass) const {
    PropertyInfo::GetOptions options;
    options.accessibility = access;
    options.accessingClass = accessingClass;
    return getProperties(options);
}

std::vector<PropertyInfo> ClassInfo::getPropertiesOfSuperclasses(const PropertyInfo::GetOptions& options) const {
    const PropertyInfo::GetOptions inherited = optionsForSuperclasses(options);
    std::vector<PropertyInfo> properties;
    for (const std::shared_ptr<ClassInfo>& superclass : structure_.superclasses) {
        appendMoved(properties, superclass->getProperties(inherited));
    }
    return properties;
}

}  // namespace ZELKContextData
