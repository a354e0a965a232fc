// The members of a class along its resolution order, as nodes.
#pragma once

#include <Python.h>

#include <boost/smart_ptr/intrusive_ptr.hpp>

#include <cstdint>
#include <vector>

#include "host/class_system.h"
#include "hosts/python/classes/name_index.h"
#include "hosts/python/classes/structure_key.h"
#include "hosts/python/counted.h"
#include "hosts/python/members/nodes.h"

namespace python_host {

class ClassObject;
class MemberTableBuilder;

/// A picture of the class at one moment; it never changes, and stays whole as long as a handle to a node is held.
///
/// Each name stands once: the first class of the order that has it decides what it is.
class MemberTable final : public Counted {
public:
    using Handle = boost::intrusive_ptr<const MemberTable>;

    /// A table without members, as a class has whose type died.
    MemberTable();
    ~MemberTable() override;

    const std::vector<MethodNode>& methods() const noexcept { return methods_; }
    const std::vector<PropertyNode>& properties() const noexcept { return properties_; }
    const std::vector<EnumNode>& enumerationMembers() const noexcept { return enumerationMembers_; }

    /// The member of a name; null when the class has none of that kind.
    const MethodNode* findMethod(zelk::COSInternedID name) const;
    const PropertyNode* findProperty(zelk::COSInternedID name) const;

    /// Whether the class has a member of that name, of whatever kind.
    bool hasName(zelk::COSInternedID name) const { return index_.find(name) != NameIndex::absent; }

    std::size_t size() const noexcept { return methods_.size() + properties_.size() + enumerationMembers_.size(); }
    const StructureKey& key() const noexcept { return key_; }

private:
    friend class MemberTableBuilder;

    NameIndex index_;
    std::vector<MethodNode> methods_;
    std::vector<PropertyNode> properties_;
    std::vector<EnumNode> enumerationMembers_;
    std::vector<boost::intrusive_ptr<ClassObject>> declarers_;
    StructureKey key_;
};

/// Reads the members of a type that is alive. Runs none of the type's code; may throw `std::bad_alloc` and, when the
/// types of the order cannot be registered, a host failure.
MemberTable::Handle buildMemberTable(PyTypeObject* type);

}  // namespace python_host
