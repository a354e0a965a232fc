// The nodes of the in-memory class system.
#pragma once

#include <cassert>
#include <cstdint>
#include <string>

#include "host/class_system.h"

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

    zelk::COSInternedID id;
    std::int32_t access = zelk::publicAccess;
    bool isStaticMethod = false;
    bool listable = true;
};

class DataType final : public zelk::COSDataType {
public:
    explicit DataType(zelk::COSInternedID id) noexcept : id_(id) {}

    zelk::COSInternedID getID() const override;
    void addReference() const noexcept override { ++references_; }
    void releaseReference() const noexcept override {
        if (--references_ == 0) {
            delete this;
        }
    }

private:
    ~DataType() = default;

    mutable std::size_t references_ = 0;
    zelk::COSInternedID id_;
};

class Property final : public Node, public zelk::COSPropInfo {
public:
    Property(Class* definingClass, zelk::COSInternedID id) noexcept : Node(NodeKind::property, definingClass), id(id) {}

    const char* getName() const override;
    std::int32_t getGetAccess() const override;
    std::int32_t getSetAccess() const override;
    bool isListable() const override;
    zelk::COSDataTypePtr getDataType() const override;

    zelk::COSInternedID id;
    std::int32_t getCode = zelk::publicAccess;
    std::int32_t setCode = zelk::publicAccess;
    bool listable = true;
    zelk::COSDataTypePtr dataType;
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
