#include "contextdata/visitors/custom_getter.h"

#include <algorithm>

#include "contextdata/property_visitor.h"
#include "host/exceptions.h"

namespace ZELKContextData {

const std::vector<std::string>& getAttributesToTreatAsHavingCustomGetters() {
    static const std::vector<std::string> names = {"RVXGetSet"};
    return names;
}

}  // namespace ZELKContextData

namespace contextdata::visitors {

namespace {

/// Whether the author set an attribute of a name; one of another type than a flag says nothing.
bool hasFlag(const zelk::COSPropInfo& property, const std::string& name) {
    const zelk::COSAttributePtr attribute = property.findAttribute(zelk::internal::makeInterned(name));
    if (!attribute) {
        return false;
    }
    const zelk::COSDataTypePtr type = attribute->getDataType();
    return type && type->getID().view() == "logical scalar" &&
           attribute->getValue(zelk::COSGetPublicClient()) != nullptr;
}

bool askForCustomGetter(const zelk::COSPropInfo& property) {
    const zelk::COSExtendedPropInfo* extended = property.getExtended();
    if (extended != nullptr && extended->hasCustomGetter()) {
        return true;
    }
    const std::vector<std::string>& names = ZELKContextData::getAttributesToTreatAsHavingCustomGetters();
    return std::any_of(names.begin(), names.end(), [&](const std::string& name) { return hasFlag(property, name); });
}

}  // namespace

bool hasCustomGetter(const zelk::COSPropInfo& property) {
    try {
        return askForCustomGetter(property);
    } catch (const foundation::core::except::InterruptException&) {
        throw;
    } catch (...) {
        return true;
    }
}

}  // namespace contextdata::visitors
