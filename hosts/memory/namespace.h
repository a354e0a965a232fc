// A namespace of the in-memory class system.
#pragma once

#include <deque>
#include <string_view>
#include <vector>

#include "hosts/memory/members.h"

namespace memory_host {

struct WorldState;

class Namespace final : public Node, public zelk::COSNamespace {
public:
    Namespace(WorldState& world, zelk::COSInternedID id) : Node(NodeKind::space, nullptr), world(world), id(id) {}

    const char* getName() const override;
    zelk::COSIteratorPtr getClasses() override;
    zelk::COSIteratorPtr getFunctions() override;
    zelk::COSIteratorPtr getNamespaces() override;

    std::size_t handlesAlive() const noexcept;

    /// Fills in the list that a property of that name shows; false when there is no such list.
    bool fillList(std::string_view property);

    WorldState& world;
    zelk::COSInternedID id;
    std::vector<Node*> classes;
    std::deque<Method> functions;
    std::vector<Node*> functionNodes;
    std::vector<Node*> namespaces;
    std::deque<EnumerationMember> strangers;  // in every list
    /// A list that is not filled in yet walks over nothing.
    bool classesFilled = true;
    bool functionsFilled = true;
    bool namespacesFilled = true;
};

}  // namespace memory_host
