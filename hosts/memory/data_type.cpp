#include "hosts/memory/data_type.h"

#include "hosts/memory/watch.h"
#include "hosts/memory/world_state.h"

namespace memory_host {

const char* TypeValue::getText() const {
    return entersToNull(Service::typeValueGetText) || !isText ? nullptr : raw.c_str();
}

std::string Conversion::convert(const zelk::COSTypeValue& value) const {
    enter(Service::conversionConvert);
    return function_(static_cast<const TypeValue&>(value).raw);
}

const char* Validation::getClassName() const {
    enter(Service::validationGetClassName);
    return className.c_str();
}

std::vector<std::string> Validation::getDimensions() const {
    enter(Service::validationGetDimensions);
    return dimensions;
}

std::vector<std::string> Validation::getValidators() const {
    enter(Service::validationGetValidators);
    return validators;
}

zelk::COSInternedID DataType::getID() const {
    enter(Service::dataTypeGetID);
    return id;
}

bool DataType::hasValueList() const {
    enter(Service::dataTypeHasValueList);
    return values.has_value();
}

void DataType::visitValues(zelk::COSVisitor<const zelk::COSTypeValue*>& visitor) const {
    enter(Service::dataTypeVisitValues);
    if (!values) {
        return;
    }
    for (const TypeValue& value : *values) {
        visitor.visit(&value);
    }
}

void DataType::releaseReference() const noexcept {
    if (--references_ == 0) {
        delete this;
    }
}

}  // namespace memory_host

using memory_host::entersToNull;
using memory_host::Service;

const zelk::COSValidationType* zelk::COSValidationType::get(const COSDataType& type) {
    const auto& own = static_cast<const memory_host::DataType&>(type);
    return entersToNull(Service::validationTypeGet) || !own.validation ? nullptr : &*own.validation;
}

const zelk::COSConversion* zelk::COSTypeRepository::getConversion(COSInternedID from, COSInternedID to) {
    if (entersToNull(Service::getConversion, from)) {
        return nullptr;
    }
    const auto& conversions = memory_host::currentWorld().conversions;
    const auto found = conversions.find({from, to});
    return found == conversions.end() ? nullptr : &found->second;
}
