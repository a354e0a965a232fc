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

/// An attribute name that a class advertises, or keeps for those who ask for all.
struct AttributeName {
    std::string name;
    bool hidden = false;
};

class Class final : public Node, public zelk::COSClass {
public:
    Class(WorldState& world, zelk::COSInternedID id, qxClassID number)
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
    void visitDeclaredMethods(zelk::COSVisitor<zelk::COSInterface*>& visitor) override;
    void visitDeclaredProperties(zelk::COSVisitor<zelk::COSInterface*>& visitor) override;
    zelk::COSIteratorPtr getEnumerationMembers() override;
    bool withholdsOwnMembers() const override;
    zelk::COSIDIteratorPtr getSuperclasses() override;
    void getClassAttributeNames(bool includeHidden, std::vector<std::string>& names) const override;
    void getPropertyAttributeNames(bool includeHidden, std::vector<std::string>& names) const override;
    void getMethodAttributeNames(bool includeHidden, std::vector<std::string>& names) const override;
    void getEventAttributeNames(bool includeHidden, std::vector<std::string>& names) const override;

    WorldState& world;
    zelk::COSInternedID id;
    qxClassID number;
    bool defined = true;
    bool hidden = false;
    bool dynamicProperties = false;
    bool withholding = false;
    std::vector<Class*> superclasses;
    std::vector<zelk::COSInternedID> superclassIDs;  // what the superclass walk yields, ids of no class included
    std::vector<AttributeName> classAttributes;
    std::vector<AttributeName> propertyAttributes;
    std::vector<AttributeName> methodAttributes;
    std::vector<AttributeName> eventAttributes;
    std::deque<Method> methods;
    std::vector<zelk::COSInternedID> foreignMethodNames;  // names under which the class itself is found among methods
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
