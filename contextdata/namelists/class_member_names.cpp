#include "contextdata/class_member_names.h"

#include "contextdata/introspection.h"
#include "contextdata/member_names.h"
#include "host/class_system.h"
#include "host/i18n.h"

namespace ZELKContextData {

using Names = std::vector<std::u16string>;
using ZELKIntrospection::DesiredPropertyAttributes;

namespace {

/// Room for an enumeration of usual size.
constexpr std::size_t usualEnumerationCount = 32;

constexpr int anyMethod = 0;
constexpr int staticMethodsOnly = 1;
constexpr int listableMethodsOnly = 1;

constexpr DesiredPropertyAttributes anyProperty = {2, 2, 2, 1};
constexpr DesiredPropertyAttributes constantProperty = {2, 2, 0, 1};

bool listMethods(const ResolvedClassID& id, Names& names, int staticSelection) {
    zelk::COSClass* cls = ZELKIntrospection::getCOSClass(id);
    if (cls == nullptr) {
        return false;
    }
    const std::size_t oldSize = names.size();
    ZELKIntrospection::getClassMethodNames(cls, names, staticSelection, listableMethodsOnly);
    return names.size() != oldSize;
}

bool listProperties(const ResolvedClassID& id, Names& names, bool& flag, const DesiredPropertyAttributes& desired) {
    zelk::COSClass* cls = ZELKIntrospection::getCOSClass(id);
    if (cls == nullptr) {
        return false;
    }
    const std::size_t oldSize = names.size();
    flag = cls->hasDynamicProperties();
    ZELKIntrospection::getClassPropertyNames(cls, names, desired);
    return names.size() != oldSize;
}

void appendEnumerationMember(const zelk::COSInterfacePtr& node, const fl::i18n::codecvt_ascii_to_ustring& converter,
                             Names& names) {
    const zelk::COSEnumInfo* member = zelk::cosiToEnum(node.get());
    if (member == nullptr || member->isHidden()) {
        return;
    }
    names.push_back(fl::i18n::to_ustring(member->getName(), converter));
}

/// A name that denotes no class, and a host that fails at it, both mean that nothing can be offered.
template <class Listing>
bool listByName(const std::u16string& className, Listing listing) {
    try {
        return listing(ResolvedClassID::fromLegacyString(className));
    } catch (...) {
        return false;
    }
}

}  // namespace

bool getClassMethodNames(const ResolvedClassID& cls, Names& names, bool& /*flag*/) {
    return listMethods(cls, names, anyMethod);
}

bool getClassStaticMethodNames(const ResolvedClassID& cls, Names& names, bool& /*flag*/) {
    return listMethods(cls, names, staticMethodsOnly);
}

bool getClassPropertyNames(const ResolvedClassID& cls, Names& names, bool& flag) {
    return listProperties(cls, names, flag, anyProperty);
}

bool getClassConstantPropertyNames(const ResolvedClassID& cls, Names& names, bool& flag) {
    return listProperties(cls, names, flag, constantProperty);
}

bool getClassEnumerationNames(const ResolvedClassID& id, Names& names, bool& /*flag*/) {
    zelk::COSClass* cls = ZELKIntrospection::getCOSClass(id);
    if (cls == nullptr) {
        return false;
    }
    const std::size_t oldSize = names.size();
    names.reserve(usualEnumerationCount);
    const fl::i18n::codecvt_ascii_to_ustring converter(false);
    const zelk::COSIteratorPtr members = cls->getEnumerationMembers();
    while (members && members->hasMoreElements()) {
        appendEnumerationMember(members->nextElement(), converter, names);
    }
    return names.size() != oldSize;
}

bool getClassMethodNames(const std::u16string& className, Names& names, bool& flag) {
    return listByName(className, [&](const ResolvedClassID& cls) { return getClassMethodNames(cls, names, flag); });
}

bool getClassStaticMethodNames(const std::u16string& className, Names& names, bool& flag) {
    return listByName(className,
                      [&](const ResolvedClassID& cls) { return getClassStaticMethodNames(cls, names, flag); });
}

bool getClassPropertyNames(const std::u16string& className, Names& names, bool& flag) {
    return listByName(className, [&](const ResolvedClassID& cls) { return getClassPropertyNames(cls, names, flag); });
}

bool getClassConstantPropertyNames(const std::u16string& className, Names& names, bool& flag) {
    return listByName(className,
                      [&](const ResolvedClassID& cls) { return getClassConstantPropertyNames(cls, names, flag); });
}

bool getClassEnumerationNames(const std::u16string& className, Names& names, bool& flag) {
    return listByName(className,
                      [&](const ResolvedClassID& cls) { return getClassEnumerationNames(cls, names, flag); });
}

}  // namespace ZELKContextData
