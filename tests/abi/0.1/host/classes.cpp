// The class system: it has no classes and no namespaces yet.
//
// To begin, derive a class of yours from `zelk::COSClass` and have `getClass` answer it by its name; then its members,
// as nodes that derive from `zelk::COSInterface` and from `zelk::COSMethodInfo` or `zelk::COSPropInfo`. The in-memory
// host (hosts/memory) does just that.
#include "host/class_system.h"

namespace zelk {

COSClass* COSClass::getClass(COSInternedID /*id*/) { return nullptr; }
COSInterfacePtr COSPackage::getNamespaceInterface(COSInternedID /*name*/) { return {}; }

// There are no nodes, so none has a view and none is a member of a class.
COSMethodInfo* cosiToMethod(COSInterface* /*node*/) noexcept { return nullptr; }
COSPropInfo* cosiToProp(COSInterface* /*node*/) noexcept { return nullptr; }
COSEnumInfo* cosiToEnum(COSInterface* /*node*/) noexcept { return nullptr; }
COSClass* cosiToClass(COSInterface* /*node*/) noexcept { return nullptr; }
COSNamespace* cosiToNamespace(COSInterface* /*node*/) noexcept { return nullptr; }
COSClass* cosiClassOfMember(COSInterface* /*member*/) { return nullptr; }

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
