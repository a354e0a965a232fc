#include "contextdata/visitors/custom_getter.h"

#include <algorithm>
#include <iterator>

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

using Flags = std::vector<zelk::COSInternedID>;

Flags internedFlags() {
    const std::vector<std::string>& names = ZELKContextData::getAttributesToTreatAsHavingCustomGetters();
    Flags flags;
    flags.reserve(names.size());
    std::transform(names.begin(), names.end(), std::back_inserter(flags), zelk::internal::makeInterned);
    return flags;
}

/// Whether the author set an attribute of a name; one of another type than a flag says nothing.
bool hasFlag(const zelk::COSPropInfo& property, zelk::COSInternedID name) {
    const zelk::COSAttributePtr attribute = property.findAttribute(name);
    if (!attribute) {
        return false;
    }
    const zelk::COSDataTypePtr type = attribute->getDataType();
    return type && type->getID().view() == "logical scalar" &&
           attribute->getValue(zelk::COSGetPublicClient()) != nullptr;
}

bool askForCustomGetter(const zelk::COSPropInfo& property, Flags& flags) {
    const zelk::COSExtendedPropInfo* extended = property.getExtended();
    if (extended != nullptr && extended->hasCustomGetter()) {
        return true;
    }
    if (flags.empty()) {
        flags = internedFlags();
    }
    return std::any_of(flags.begin(), flags.end(), [&](zelk::COSInternedID name) { return hasFlag(property, name); });
}

}  // namespace

bool hasCustomGetter(const zelk::COSPropInfo& property, Flags& flags) {
    try {
        return askForCustomGetter(property, flags);
    } catch (const foundation::core::except::InterruptException&) {
        throw;
    } catch (...) {
        return true;
    }
}

}  // namespace contextdata::visitors
