#include "hosts/memory/members.h"

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

zelk::COSInternedID DataType::getID() const {
    enter(Service::dataTypeGetID);
    return id_;
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

const char* EnumerationMember::getName() const {
    enter(Service::enumGetName, id);
    return id.c_str();
}

bool EnumerationMember::isHidden() const {
    enter(Service::enumIsHidden, id);
    return hidden;
}

}  // namespace memory_host
