// The nodes of the in-memory class system.
#pragma once

#include <cassert>
#include <cstdint>
#include <deque>
#include <optional>
#include <utility>
#include <vector>

#include "host/class_system.h"
#include "hosts/memory/data_type.h"

namespace memory_host {

class Class;

enum class NodeKind : std::uint8_t { method, property, enumerationMember, cls, space };

/// A node that its world owns; the count only tells whether a handle is still about.
class Node : public zelk::COSInterface {
public:
    Node(NodeKind kind, Class* definingClass) noexcept : kind_(kind), definingClass_(definingClass) {}
    Node(const Node&) = delete;
    Node& operator=(const Node&) = delete;

    NodeKind kind() const noexcept { return kind_; }
    /// Null for classes, namespaces and a namespace's functions.
    Class* definingClass() const noexcept { return definingClass_; }
    std::size_t references() const noexcept { return references_; }

    void addReference() const noexcept final { ++references_; }
    void releaseReference() const noexcept final {
        assert(references_ > 0);
        --references_;
    }

protected:
    ~Node() = default;

private:
    mutable std::size_t references_ = 0;
    NodeKind kind_;
    Class* definingClass_;
};

class Method final : public Node, public zelk::COSMethodInfo {
public:
    Method(Class* definingClass, zelk::COSInternedID id) noexcept : Node(NodeKind::method, definingClass), id(id) {}

    const char* getName() const override;
    bool isStatic() const override;
    bool isListable() const override;
    std::int32_t getAccess() const override;
    zelk::COSAccessList getAccessList() const override;
    std::int32_t getVisibility() const override;

    zelk::COSInternedID id;
    std::int32_t access = zelk::publicAccess;
    std::vector<zelk::COSInternedID> accessList;
    std::int32_t visibility = zelk::shownVisibility;
    bool isStaticMethod = false;
    bool listable = true;
};

/// An attribute of a property's metadata.
class Attribute final : public zelk::COSAttribute {
public:
    Attribute(zelk::COSInternedID name, zelk::COSDataTypePtr type, qxUniqueArray value) noexcept
        : name(name), value(std::move(value)), type_(std::move(type)) {}

    zelk::COSDataTypePtr getDataType() const override;
    qxUniqueArray getValue(const zelk::COSClient& client) const override;
    void addReference() const noexcept override { ++references_; }
    void releaseReference() const noexcept override { --references_; }

    std::size_t references() const noexcept { return references_; }

    zelk::COSInternedID name;
    qxUniqueArray value;  // null for one without a value

private:
    mutable std::size_t references_ = 0;
    zelk::COSDataTypePtr type_;
};

class ExtendedProperty final : public zelk::COSExtendedPropInfo {
public:
    bool hasCustomGetter() const override;
    bool queryIsStored(bool& isStored) const override;

    bool customGetter = false;
    std::optional<bool> stored = true;  // unset: cannot be found out
};

class Property final : public Node, public zelk::COSPropInfo {
public:
    Property(Class* definingClass, zelk::COSInternedID id) noexcept : Node(NodeKind::property, definingClass), id(id) {}

    const char* getName() const override;
    std::int32_t getGetAccess() const override;
    std::int32_t getSetAccess() const override;
    bool isListable() const override;
    zelk::COSDataTypePtr getDataType() const override;
    zelk::COSAccessList getGetAccessList() const override;
    zelk::COSAccessList getSetAccessList() const override;
    std::int32_t getVisibility() const override;
    bool isReadOnly() const override;
    const zelk::COSExtendedPropInfo* getExtended() const override;
    zelk::COSAttributePtr findAttribute(zelk::COSInternedID name) const override;

    /// Handles to the property, to its type and to its attributes that somebody holds.
    std::size_t handlesAlive() const noexcept;
    /// The type, made when the property has none yet.
    DataType& type();

    zelk::COSInternedID id;
    std::int32_t getCode = zelk::publicAccess;
    std::int32_t setCode = zelk::publicAccess;
    std::vector<zelk::COSInternedID> getAccessList;
    std::vector<zelk::COSInternedID> setAccessList;
    std::int32_t visibility = zelk::shownVisibility;
    bool listable = true;
    bool readOnly = false;
    boost::intrusive_ptr<DataType> dataType;
    std::optional<ExtendedProperty> extended;
    mutable std::deque<Attribute> attributes;
};

class EnumerationMember final : public Node, public zelk::COSEnumInfo {
public:
    EnumerationMember(Class* definingClass, zelk::COSInternedID id) noexcept
        : Node(NodeKind::enumerationMember, definingClass), id(id) {}

    const char* getName() const override;
    bool isHidden() const override;

    zelk::COSInternedID id;
    bool hidden = false;
};

}  // namespace memory_host
