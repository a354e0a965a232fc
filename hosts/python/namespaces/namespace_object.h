// A module as a namespace of the class system.
#pragma once

#include <Python.h>

#include <boost/smart_ptr/intrusive_ptr.hpp>

#include "host/class_system.h"
#include "hosts/python/members/nodes.h"
#include "hosts/python/namespaces/namespace_listing.h"

namespace python_host {

/// Known by name for the life of the process; the module behind it is looked up at each question, so of a
/// namespace whose module is not loaded only the modules in its folders are known.
class NamespaceObject final : public Node, public zelk::COSNamespace {
public:
    /// The one object of a name.
    static NamespaceObject& named(zelk::COSInternedID name);

    /// The full dotted name under which the namespace was asked for or listed.
    const char* getName() const override { return name_.c_str(); }
    /// The classes that are bound in the module, each under the name by which it is bound there.
    zelk::COSIteratorPtr getClasses() override;
    zelk::COSIteratorPtr getFunctions() override;
    /// Modules bound in the module, loaded submodules, and those that stand in the package's folders.
    zelk::COSIteratorPtr getNamespaces() override;

private:
    explicit NamespaceObject(zelk::COSInternedID name) : Node(NodeKind::nameSpace, nullptr), name_(name) {}

    /// Empty when the module is not loaded.
    NamespaceListing::Handle listing();
    zelk::COSIteratorPtr namespacesOfUnloaded() const;

    zelk::COSInternedID name_;
    NamespaceListing::Handle listing_;
    /// The listing before, for the classes that a caller may still hold.
    NamespaceListing::Handle previous_;
};

}  // namespace python_host
