// The views of nodes, and what a member says about its class.
#include "hosts/python/annotations.h"
#include "hosts/python/class_object.h"
#include "hosts/python/dictionaries.h"
#include "hosts/python/errors.h"
#include "hosts/python/interning.h"
#include "hosts/python/keys.h"
#include "hosts/python/namespace_object.h"
#include "hosts/python/nodes.h"
#include "hosts/python/references.h"

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

PyObject* annotationOf(PyTypeObject* type, zelk::COSInternedID name) {
    PyObject* annotations = findItem(type->tp_dict, keys().annotations);
    PyObject* found = nullptr;
    eachTextItem(annotations, [&](PyObject* key, PyObject* annotation) {
        if (found == nullptr && internKey(key) == name) {
            found = annotation;
        }
    });
    return found;
}

}  // namespace

zelk::COSDataTypePtr PropertyNode::getDataType() const {
    const PendingErrorGuard pending;
    PyTypeObject* type = facts().declarer == nullptr ? nullptr : facts().declarer->type();
    if (type == nullptr) {
        return {};
    }
    const Ref annotation = Ref::share(annotationOf(type, facts().name));
    return annotation ? dataTypeOf(annotation.get()) : zelk::COSDataTypePtr();
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
    return node->kind() == NodeKind::method && facts.isNamedLikeDeclarer ? nullptr : facts.declarer;
}
