#include "contextdata/property_visitor.h"

#include <utility>

#include "contextdata/class_info.h"
#include "contextdata/visitors/access.h"
#include "contextdata/visitors/custom_getter.h"
#include "contextdata/visitors/type_analysis.h"
#include "host/exceptions.h"
#include "host/i18n.h"

namespace ZELKContextData {

using namespace contextdata::visitors;

namespace {

/// Codes of the kinds of access that the options may name.
constexpr std::int32_t reading = 0;
constexpr std::int32_t writing = 1;

/// True as well where nothing is known: no extended record, one that cannot tell, or a host that fails at it.
bool isStored(const zelk::COSPropInfo& property) {
    try {
        const zelk::COSExtendedPropInfo* extended = property.getExtended();
        bool stored = true;
        return extended == nullptr || !extended->queryIsStored(stored) || stored;
    } catch (const foundation::core::except::InterruptException&) {
        throw;
    } catch (...) {
        return true;
    }
}

PropertyInfo recordOf(const char* name, const zelk::COSPropInfo& property,
                      std::vector<zelk::COSInternedID>& customGetterFlags) {
    PropertyInfo record;
    analyseType(property.getDataType(), record);
    record.name = fl::i18n::to_ustring(name);
    record.readFlag = property.isReadOnly();
    record.hasCustomGetter = hasCustomGetter(property, customGetterFlags);
    record.extendedFlag = isStored(property);
    return record;
}

}  // namespace

PropertyVisitorMutable::PropertyVisitorMutable(const ClassInfo* visitedClass)
    : visitedClass_(visitedClass), accessibility_{zelk::publicAccess}, accessKinds_{reading, writing} {}

PropertyVisitorMutable::~PropertyVisitorMutable() = default;

void PropertyVisitorMutable::clear() {
    collected_.clear();
    hidden_.clear();
    customGetterFlags_.clear();
}

void PropertyVisitorMutable::clear(const PropertyInfo::GetOptions& options) {
    clear();
    accessibility_ = options.accessibility;
    accessKinds_ = options.accessKinds;
    accessingClass_ = options.accessingClass;
    includeHidden_ = options.includeHidden;
}

void PropertyVisitorMutable::visit(zelk::COSInterface* node) {
    const zelk::COSInterfacePtr handle(node);
    visit(handle, zelk::cosiToProp(node));
}

// The handle comes by value: whoever overrides this may keep it.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
void PropertyVisitorMutable::visit(zelk::COSInterfacePtr handle, zelk::COSPropInfo* property) {
    if (property == nullptr) {
        return;
    }
    const char* name = property->getName();
    if (!isDeclaredBy(declarerOf(handle), *visitedClass_) || !isAccessible(property)) {
        return;
    }
    PropertyInfo record = recordOf(name, *property, customGetterFlags_);
    const bool isShown = includeHidden_ || property->getVisibility() == zelk::shownVisibility;
    (isShown ? collected_ : hidden_).push_back(std::move(record));
}

bool PropertyVisitorMutable::isAccessible(zelk::COSPropInfo* property) const {
    return hasAccessibleLevel(property) || hasAccessingClass(property);
}

// Every named access is read, also when one before it is accessible: a host that fails at one of them fails the
// question whatever the other says.
bool PropertyVisitorMutable::hasAccessibleLevel(zelk::COSPropInfo* property) const {
    bool isAccessible = false;
    for (const std::int32_t kind : accessKinds_) {
        if (kind == reading) {
            isAccessible |= isAmong(accessibility_, property->getGetAccess());
        } else if (kind == writing) {
            isAccessible |= isAmong(accessibility_, property->getSetAccess());
        }
    }
    return isAccessible;
}

bool PropertyVisitorMutable::hasAccessingClass(zelk::COSPropInfo* property) const {
    return accessingClass_ != nullptr && (isOn(property->getGetAccessList(), *accessingClass_) ||
                                          isOn(property->getSetAccessList(), *accessingClass_));
}

}  // namespace ZELKContextData
