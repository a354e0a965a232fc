#include "hosts/memory/members.h"

#include <algorithm>

#include "hosts/memory/watch.h"

namespace memory_host {

const char* Method::getName() const {
    enter(Service::methodGetName, id);
    return id.c_str();
}

bool Method::isStatic() const {
    enter(Service::methodIsStatic, id);
    return isStaticMethod;
}

bool Method::isListable() const {
    enter(Service::methodIsListable, id);
    return listable;
}

std::int32_t Method::getAccess() const {
    enter(Service::methodGetAccess, id);
    return access;
}

zelk::COSAccessList Method::getAccessList() const {
    enter(Service::methodGetAccessList, id);
    return accessList;
}

std::int32_t Method::getVisibility() const {
    enter(Service::methodGetVisibility, id);
    return visibility;
}

zelk::COSDataTypePtr Attribute::getDataType() const {
    return entersToNull(Service::attributeGetDataType, name) ? nullptr : type_;
}

qxUniqueArray Attribute::getValue(const zelk::COSClient& /*client*/) const {
    if (entersToNull(Service::attributeGetValue, name) || value == nullptr) {
        return nullptr;
    }
    intrusive_ptr_add_ref(value.get());
    return qxUniqueArray(value.get());
}

bool ExtendedProperty::hasCustomGetter() const {
    enter(Service::extendedHasCustomGetter);
    return customGetter;
}

bool ExtendedProperty::queryIsStored(bool& isStored) const {
    enter(Service::extendedQueryIsStored);
    isStored = stored.value_or(isStored);
    return stored.has_value();
}

const char* Property::getName() const {
    enter(Service::propertyGetName, id);
    return id.c_str();
}

std::int32_t Property::getGetAccess() const {
    enter(Service::propertyGetGetAccess, id);
    return getCode;
}

std::int32_t Property::getSetAccess() const {
    enter(Service::propertyGetSetAccess, id);
    return setCode;
}

bool Property::isListable() const {
    enter(Service::propertyIsListable, id);
    return listable;
}

zelk::COSDataTypePtr Property::getDataType() const {
    return entersToNull(Service::propertyGetDataType, id) ? nullptr : dataType;
}

zelk::COSAccessList Property::getGetAccessList() const {
    enter(Service::propertyGetGetAccessList, id);
    return getAccessList;
}

zelk::COSAccessList Property::getSetAccessList() const {
    enter(Service::propertyGetSetAccessList, id);
    return setAccessList;
}

std::int32_t Property::getVisibility() const {
    enter(Service::propertyGetVisibility, id);
    return visibility;
}

bool Property::isReadOnly() const {
    enter(Service::propertyIsReadOnly, id);
    return readOnly;
}

const zelk::COSExtendedPropInfo* Property::getExtended() const {
    return entersToNull(Service::propertyGetExtended, id) || !extended ? nullptr : &*extended;
}

zelk::COSAttributePtr Property::findAttribute(zelk::COSInternedID name) const {
    if (entersToNull(Service::propertyFindAttribute, name)) {
        return nullptr;
    }
    const auto found = std::find_if(attributes.begin(), attributes.end(),
                                    [name](const Attribute& attribute) { return attribute.name == name; });
    return found == attributes.end() ? nullptr : zelk::COSAttributePtr(&*found);
}

std::size_t Property::handlesAlive() const noexcept {
    std::size_t alive = references() + (dataType ? dataType->references() - 1 : 0);
    for (const Attribute& attribute : attributes) {
        alive += attribute.references();
    }
    return alive;
}

DataType& Property::type() {
    if (!dataType) {
        dataType = new DataType;
    }
    return *dataType;
}

const char* EnumerationMember::getName() const {
    enter(Service::enumGetName, id);
    return id.c_str();
}

bool EnumerationMember::isHidden() const {
    enter(Service::enumIsHidden, id);
    return hidden;
}

}  // namespace memory_host
