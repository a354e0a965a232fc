// A class of the in-memory class system.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "host/array_library.h"
#include "hosts/memory/members.h"

namespace memory_host {

struct WorldState;

using ValueFunction = std::function<qxUniqueArray(const qxArray*)>;

class Class final : public Node, public zelk::COSClass {
public:
    Class(WorldState& world, zelk::COSInternedID id, qxClassID number) noexcept
        : Node(NodeKind::cls, nullptr), world(world), id(id), number(number) {}

    /// The class itself, then its ancestors depth-first, each once.
    const std::vector<Class*>& lineage() const;

    std::size_t handlesAlive() const noexcept;

    const zelk::COSClassDefinition* getDefinition(bool load) override;
    zelk::COSInternedID getID() const override;
    const char* getName() const override;
    bool isHidden() const override;
    bool hasDynamicProperties() const override;
    bool isSubclassOf(zelk::COSInternedID base) const override;
    zelk::COSIteratorPtr findMethods(zelk::COSInternedID name) override;
    zelk::COSInterfacePtr findProperty(zelk::COSInternedID name) override;
    void visitMethods(zelk::COSVisitor<zelk::COSInterface*>& visitor) override;
    void visitProperties(zelk::COSVisitor<zelk::COSInterface*>& visitor) override;
    zelk::COSIteratorPtr getEnumerationMembers() override;

    WorldState& world;
    zelk::COSInternedID id;
    qxClassID number;
    bool defined = true;
    bool hidden = false;
    bool dynamicProperties = false;
    std::vector<Class*> superclasses;
    std::deque<Method> methods;
    std::deque<Property> properties;
    std::deque<EnumerationMember> enumerationMembers;
    std::vector<Node*> enumeration;  // what the enumeration walk yields, foreign nodes included
    std::map<std::string, ValueFunction, std::less<>> callableMethods;

private:
    void appendLineage(std::vector<Class*>& lineage) const;

    mutable std::vector<Class*> lineage_;
    mutable std::size_t lineageGeneration_ = 0;
};

}  // namespace memory_host
