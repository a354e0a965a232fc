// A live type as a class of the class system.
#pragma once

#include <Python.h>

#include <cstdint>
#include <string>
#include <vector>

#include "host/class_system.h"
#include "hosts/python/classes/type_names.h"
#include "hosts/python/classes/unnamed_class.h"
#include "hosts/python/counted.h"
#include "hosts/python/members/member_table.h"
#include "hosts/python/references.h"

/// There is nothing behind a class but the type itself; that it is alive is its definition.
class zelk::COSClassDefinition {};

namespace python_host {

/// Knows its type weakly. Once the type has died the object answers as a class without definition or members.
///
/// Owned by the registry, which keeps it for a while after the type's death, and by the tables that mention it.
class ClassObject final : public Counted, public zelk::COSClass {
public:
    /// `weakType` is a weak reference to a type. `number` is unique among living types.
    ClassObject(Ref weakType, std::int32_t number);

    /// The type, borrowed; null once it has died.
    PyTypeObject* type() const noexcept {
        PyObject* object = PyWeakref_GET_OBJECT(weakType_.get());
        return object == Py_None ? nullptr : asType(object);
    }

    /// The number that values of the class carry as their class id.
    std::int32_t number() const noexcept { return number_; }

    /// The members as they are now; never empty.
    MemberTable::Handle members();

    /// A number that changes whenever the members do; 0 when changes cannot be told.
    std::uint64_t structureVersion();

    /// The name as it was when it was last asked for; empty before.
    zelk::COSInternedID lastID() const noexcept { return id_; }

    /// The id alone, as lists of classes show it. Borrowed from this object; later calls may change what it holds.
    zelk::COSAccessList idAsList() const {
        getID();
        return {&id_, 1};
    }

    /// The class without its name. Lives as long as this object.
    zelk::COSClass& unnamed() noexcept { return unnamed_; }

    void dropMembers() noexcept { table_.reset(); }
    std::size_t keptMembers() const noexcept { return table_ ? table_->size() : 0; }

    /// The short name begins with an underscore.
    bool isUnderscored() const;

    const zelk::COSClassDefinition* getDefinition(bool load) override;
    zelk::COSInternedID getID() const override;
    const char* getName() const override { return getID().c_str(); }
    bool isHidden() const override { return isUnderscored(); }
    bool hasDynamicProperties() const override;
    /// No class keeps members from those who ask for all of them: hiding is a matter of each member's name.
    bool withholdsOwnMembers() const override { return false; }
    zelk::COSIDIteratorPtr getSuperclasses() override;
    /// A class derives from itself.
    bool isSubclassOf(zelk::COSInternedID base) const override;
    zelk::COSIteratorPtr findMethods(zelk::COSInternedID name) override;
    zelk::COSInterfacePtr findProperty(zelk::COSInternedID name) override;
    void visitMethods(zelk::COSVisitor<zelk::COSInterface*>& visitor) override;
    void visitProperties(zelk::COSVisitor<zelk::COSInterface*>& visitor) override;
    void visitDeclaredMethods(zelk::COSVisitor<zelk::COSInterface*>& visitor) override;
    void visitDeclaredProperties(zelk::COSVisitor<zelk::COSInterface*>& visitor) override;
    zelk::COSIteratorPtr getEnumerationMembers() override;
    void getClassAttributeNames(bool includeHidden, std::vector<std::string>& names) const override;
    void getPropertyAttributeNames(bool includeHidden, std::vector<std::string>& names) const override;
    void getMethodAttributeNames(bool includeHidden, std::vector<std::string>& names) const override;
    void getEventAttributeNames(bool includeHidden, std::vector<std::string>& names) const override;

private:
    using KeywordSource = std::vector<std::string> (*)(PyTypeObject*);

    std::vector<std::string> keywordsFor(KeywordSource source, bool includeHidden) const;
    void refreshName(PyTypeObject* type) const;

    Ref weakType_;
    zelk::COSClassDefinition definition_;
    UnnamedClass unnamed_;
    MemberTable::Handle table_;
    std::uint64_t version_ = 0;
    mutable TypeName name_;
    mutable zelk::COSInternedID id_;
    std::int32_t number_;
};

}  // namespace python_host
