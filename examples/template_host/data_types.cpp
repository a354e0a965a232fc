// What members declare beyond their names: the types of properties, and attributes, which everybody reads alike.
#include "host/data_types.h"

#include "host/class_system.h"

namespace zelk {

/// Everybody; there is nothing to know about them.
class COSClient {};

const COSClient& COSGetPublicClient() {
    static const COSClient everybody{};
    return everybody;
}

// Nothing declares the type of a property yet.
const COSValidationType* COSValidationType::get(const COSDataType& /*type*/) { return nullptr; }
const COSConversion* COSTypeRepository::getConversion(COSInternedID /*from*/, COSInternedID /*to*/) { return nullptr; }

}  // namespace zelk
