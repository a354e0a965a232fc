// A namespace of the in-memory class system.
#pragma once

#include <deque>
#include <vector>

#include "hosts/memory/members.h"

namespace memory_host {

struct WorldState;

class Namespace final : public Node, public zelk::COSNamespace {
public:
    Namespace(WorldState& world, zelk::COSInternedID id) noexcept
        : Node(NodeKind::space, nullptr), world(world), id(id) {}

    const char* getName() const override;
    zelk::COSIteratorPtr getClasses() override;
    zelk::COSIteratorPtr getFunctions() override;
    zelk::COSIteratorPtr getNamespaces() override;

    std::size_t handlesAlive() const noexcept;

    WorldState& world;
    zelk::COSInternedID id;
    std::vector<Node*> classes;
    std::deque<Method> functions;
    std::vector<Node*> namespaces;
};

}  // namespace memory_host
