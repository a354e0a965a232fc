// The registries of classes and namespaces, and the views of nodes.
#include "host/class_system.h"

#include "hosts/memory/class.h"
#include "hosts/memory/namespace.h"
#include "hosts/memory/watch.h"
#include "hosts/memory/world_state.h"

namespace zelk {

using memory_host::Node;
using memory_host::NodeKind;
using memory_host::Service;

namespace {

template <class View>
View* viewed(COSInterface* node, NodeKind kind) noexcept {
    auto* own = static_cast<Node*>(node);
    return own != nullptr && own->kind() == kind ? static_cast<View*>(own) : nullptr;
}

}  // namespace

COSClass* COSClass::getClass(COSInternedID id) {
    if (memory_host::entersToNull(Service::getClass, id)) {
        return nullptr;
    }
    return memory_host::currentWorld().findClass(id);
}

COSInterfacePtr COSPackage::getNamespaceInterface(COSInternedID name) {
    if (memory_host::entersToNull(Service::getNamespaceInterface, name)) {
        return nullptr;
    }
    const auto& namespaces = memory_host::currentWorld().namespacesByName;
    const auto found = namespaces.find(name);
    return found == namespaces.end() ? nullptr : found->second;
}

/// There is one client here, and it sees everything.
class COSClient {};

const COSClient& COSGetPublicClient() {
    static const COSClient client;
    memory_host::enter(Service::getPublicClient);
    return client;
}

COSMethodInfo* cosiToMethod(COSInterface* node) noexcept { return viewed<memory_host::Method>(node, NodeKind::method); }

COSPropInfo* cosiToProp(COSInterface* node) noexcept { return viewed<memory_host::Property>(node, NodeKind::property); }

COSEnumInfo* cosiToEnum(COSInterface* node) noexcept {
    return viewed<memory_host::EnumerationMember>(node, NodeKind::enumerationMember);
}

COSClass* cosiToClass(COSInterface* node) noexcept { return viewed<memory_host::Class>(node, NodeKind::cls); }

COSNamespace* cosiToNamespace(COSInterface* node) noexcept {
    return viewed<memory_host::Namespace>(node, NodeKind::space);
}

COSClass* cosiClassOfMember(COSInterface* member) {
    if (memory_host::entersToNull(Service::classOfMember)) {
        return nullptr;
    }
    return static_cast<Node*>(member)->definingClass();
}

}  // namespace zelk
