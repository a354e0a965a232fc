// The class system: it has no classes and no namespaces yet.
//
// To begin, derive a class of yours from `zelk::COSClass` and have `getClass` answer it by its name; then its members,
// as nodes that derive from `zelk::COSInterface` and from `zelk::COSMethodInfo` or `zelk::COSPropInfo`.
// `examples/minimal_host/classes.cpp` does just that.
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

}  // namespace zelk
