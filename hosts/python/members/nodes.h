// Nodes: members of classes and of namespaces as the library sees them.
//
// A node is a plain element of the table or listing that made it; a handle to a node keeps that whole table alive.
#pragma once

#include <cstdint>

#include "host/class_system.h"
#include "host/interned.h"
#include "hosts/python/counted.h"
#include "hosts/python/members/property_form.h"

namespace python_host {

class ClassObject;

enum class NodeKind : std::uint8_t { method, property, enumeration, cls, nameSpace };

class Node : public zelk::COSInterface {
public:
    NodeKind kind() const noexcept { return kind_; }

    void addReference() const noexcept final {
        if (keeper_ != nullptr) {
            keeper_->addOwner();
        }
    }
    void releaseReference() const noexcept final {
        if (keeper_ != nullptr) {
            keeper_->releaseOwner();
        }
    }

protected:
    /// `keeper` holds the node and outlives it; null for a permanent node.
    Node(NodeKind kind, const Counted* keeper) noexcept : keeper_(keeper), kind_(kind) {}
    ~Node() = default;

private:
    const Counted* keeper_;
    NodeKind kind_;
};

/// What the members of a class share.
struct MemberFacts {
    zelk::COSInternedID name;
    /// The class that declares the member, kept alive by the node's table; null for a namespace's function.
    ClassObject* declarer = nullptr;
    std::int32_t access = zelk::publicAccess;
    bool listable = true;
    /// A method of the name of its class is a constructor to those who know no language but their own. Here it is a
    /// method like any other (`select.poll.poll`), which shows by its class keeping its name to itself.
    bool isNamedLikeDeclarer = false;
};

class MemberNode : public Node {
public:
    const MemberFacts& facts() const noexcept { return facts_; }

protected:
    /// The declaring class for what it shares with those that derive from it; empty for any other code.
    zelk::COSAccessList accessListFor(std::int32_t access) const;

    /// What the author hides is hidden from everybody alike.
    std::int32_t visibility() const noexcept { return facts_.listable ? zelk::shownVisibility : hiddenVisibility; }

    MemberNode(NodeKind kind, const Counted* keeper, const MemberFacts& facts) noexcept
        : Node(kind, keeper), facts_(facts) {}
    ~MemberNode() = default;

private:
    static constexpr std::int32_t hiddenVisibility = 0;

    MemberFacts facts_;
};

class MethodNode final : public MemberNode, public zelk::COSMethodInfo {
public:
    MethodNode(const Counted* keeper, const MemberFacts& facts, bool isStatic) noexcept
        : MemberNode(NodeKind::method, keeper, facts), isStatic_(isStatic) {}

    const char* getName() const override { return facts().name.c_str(); }
    bool isStatic() const override { return isStatic_; }
    bool isListable() const override { return facts().listable; }
    std::int32_t getAccess() const override { return facts().access; }
    zelk::COSAccessList getAccessList() const override { return accessListFor(facts().access); }
    std::int32_t getVisibility() const override { return visibility(); }

private:
    bool isStatic_;
};

/// What is a property's own, as far as it belongs to the structure of its class.
struct PropertyFacts {
    std::int32_t setAccess = zelk::publicAccess;
    PropertyForm form = PropertyForm::stored;
    /// There is no way to assign it.
    bool isReadOnly = false;
};

class PropertyNode final : public MemberNode, public zelk::COSPropInfo {
public:
    PropertyNode(const Counted* keeper, const MemberFacts& facts, const PropertyFacts& propertyFacts) noexcept
        : MemberNode(NodeKind::property, keeper, facts), propertyFacts_(propertyFacts) {}

    const char* getName() const override { return facts().name.c_str(); }
    std::int32_t getGetAccess() const override { return facts().access; }
    std::int32_t getSetAccess() const override { return propertyFacts_.setAccess; }
    bool isListable() const override { return facts().listable; }
    /// Read from the live annotation at each call.
    zelk::COSDataTypePtr getDataType() const override;
    zelk::COSAccessList getGetAccessList() const override { return accessListFor(facts().access); }
    /// What cannot be assigned is open to nobody.
    zelk::COSAccessList getSetAccessList() const override;
    std::int32_t getVisibility() const override { return visibility(); }
    /// Whether a dataclass is frozen is read at each call.
    bool isReadOnly() const override;
    const zelk::COSExtendedPropInfo* getExtended() const override { return &extendedRecordOf(propertyFacts_.form); }
    /// What is attached to a dataclass field or a trait, read at each call.
    zelk::COSAttributePtr findAttribute(zelk::COSInternedID name) const override;

private:
    PropertyFacts propertyFacts_;
};

class EnumNode final : public MemberNode, public zelk::COSEnumInfo {
public:
    EnumNode(const Counted* keeper, const MemberFacts& facts) noexcept
        : MemberNode(NodeKind::enumeration, keeper, facts) {}

    const char* getName() const override { return facts().name.c_str(); }
    bool isHidden() const override { return facts().access != zelk::publicAccess || !facts().listable; }
};

/// A class as an element of a namespace.
class ClassNode final : public Node {
public:
    ClassNode(const Counted* keeper, zelk::COSClass* cls) noexcept : Node(NodeKind::cls, keeper), class_(cls) {}
    zelk::COSClass* classObject() const noexcept { return class_; }

private:
    zelk::COSClass* class_;
};

}  // namespace python_host
