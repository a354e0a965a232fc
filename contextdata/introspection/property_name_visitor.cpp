#include "contextdata/introspection/property_name_visitor.h"

namespace ZELKIntrospection {

using zelk::constantSetAccess;
using zelk::COSPropInfo;
using zelk::publicAccess;

namespace {

constexpr std::int32_t noWish = 2;

// Each test asks the property only for what its selection depends on.

bool matchesSide(std::int32_t selection, const COSPropInfo& property) {
    constexpr std::int32_t constantsOnly = 0;
    constexpr std::int32_t noConstants = 1;
    return selection == noWish ||
           selection == (property.getSetAccess() == constantSetAccess ? constantsOnly : noConstants);
}

/// Either wish is enough by itself, so a listing that wishes for both takes a property that meets one of them.
bool matchesAccess(const DesiredPropertyAttributes& desired, const COSPropInfo& property) {
    const bool noWishes = desired.setAccessSelection == noWish && desired.getAccessSelection == noWish;
    return ((desired.setAccessSelection == 0 || noWishes) && property.getSetAccess() == publicAccess) ||
           ((desired.getAccessSelection == 0 || noWishes) && property.getGetAccess() == publicAccess);
}

bool matchesFlag(std::int32_t selection, const COSPropInfo& property) {
    constexpr std::int32_t unlistableOnly = 0;
    constexpr std::int32_t listableOnly = 1;
    return selection == noWish || selection == (property.isListable() ? listableOnly : unlistableOnly);
}

bool isDesired(const COSPropInfo& property, const DesiredPropertyAttributes& desired) {
    return matchesSide(desired.setAccessFiveSelection, property) && matchesAccess(desired, property) &&
           matchesFlag(desired.propertyFlagSelection, property);
}

}  // namespace

ZELKPropertyNameVisitor::ZELKPropertyNameVisitor(std::vector<std::u16string>& names,
                                                 std::vector<zelk::COSDataTypePtr>* dataTypes,
                                                 const DesiredPropertyAttributes& desired)
    : names_(names), dataTypes_(dataTypes), converter_(false), desired_(desired) {}

void ZELKPropertyNameVisitor::visit(zelk::COSInterface* member) {
    const COSPropInfo* property = zelk::cosiToProp(member);
    if (property == nullptr || !isDesired(*property, desired_)) {
        return;
    }
    names_.push_back(fl::i18n::to_ustring(property->getName(), converter_));
    if (dataTypes_ != nullptr) {
        dataTypes_->push_back(property->getDataType());
    }
}

}  // namespace ZELKIntrospection
