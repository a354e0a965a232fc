// The views of nodes, and what a member says about its class.
#include "hosts/python/annotations/declared_types.h"
#include "hosts/python/classes/class_object.h"
#include "hosts/python/errors.h"
#include "hosts/python/members/nodes.h"
#include "hosts/python/namespaces/namespace_object.h"

namespace python_host {

namespace {

/// Every node of this host is a `Node`.
Node* nodeOf(zelk::COSInterface* node, NodeKind kind) noexcept {
    auto* own = static_cast<Node*>(node);
    return own != nullptr && own->kind() == kind ? own : nullptr;
}

template <class Concrete>
Concrete* viewOf(zelk::COSInterface* node, NodeKind kind) noexcept {
    return static_cast<Concrete*>(nodeOf(node, kind));
}

}  // namespace

zelk::COSDataTypePtr PropertyNode::getDataType() const {
    const PendingErrorGuard pending;
    PyTypeObject* type = facts().declarer == nullptr ? nullptr : facts().declarer->type();
    return type == nullptr ? zelk::COSDataTypePtr() : declaredTypeOf(type, facts().name);
}

}  // namespace python_host

using python_host::NodeKind;

zelk::COSMethodInfo* zelk::cosiToMethod(COSInterface* node) noexcept {
    return python_host::viewOf<python_host::MethodNode>(node, NodeKind::method);
}

zelk::COSPropInfo* zelk::cosiToProp(COSInterface* node) noexcept {
    return python_host::viewOf<python_host::PropertyNode>(node, NodeKind::property);
}

zelk::COSEnumInfo* zelk::cosiToEnum(COSInterface* node) noexcept {
    return python_host::viewOf<python_host::EnumNode>(node, NodeKind::enumeration);
}

zelk::COSClass* zelk::cosiToClass(COSInterface* node) noexcept {
    auto* found = python_host::viewOf<python_host::ClassNode>(node, NodeKind::cls);
    return found == nullptr ? nullptr : found->classObject();
}

zelk::COSNamespace* zelk::cosiToNamespace(COSInterface* node) noexcept {
    return python_host::viewOf<python_host::NamespaceObject>(node, NodeKind::nameSpace);
}

zelk::COSClass* zelk::cosiClassOfMember(COSInterface* member) {
    const auto* node = static_cast<python_host::Node*>(member);
    if (node == nullptr || node->kind() == NodeKind::cls || node->kind() == NodeKind::nameSpace) {
        return nullptr;
    }
    const python_host::MemberFacts& facts = static_cast<const python_host::MemberNode*>(node)->facts();
    const bool isNamedLikeDeclarer = node->kind() == NodeKind::method && facts.isNamedLikeDeclarer;
    return isNamedLikeDeclarer ? &facts.declarer->unnamed() : facts.declarer;
}
