// A class that answers as another one.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/class_system.h"

namespace python_host {

/// Passes every question on; what derives from it answers some of them itself.
class ForwardingClass : public zelk::COSClass {
public:
    ForwardingClass(const ForwardingClass&) = delete;
    ForwardingClass& operator=(const ForwardingClass&) = delete;

    const zelk::COSClassDefinition* getDefinition(bool load) override { return class_.getDefinition(load); }
    zelk::COSInternedID getID() const override { return class_.getID(); }
    const char* getName() const override { return class_.getName(); }
    bool isHidden() const override { return class_.isHidden(); }
    bool hasDynamicProperties() const override { return class_.hasDynamicProperties(); }
    bool withholdsOwnMembers() const override { return class_.withholdsOwnMembers(); }
    zelk::COSIDIteratorPtr getSuperclasses() override { return class_.getSuperclasses(); }
    bool isSubclassOf(zelk::COSInternedID base) const override { return class_.isSubclassOf(base); }
    zelk::COSIteratorPtr findMethods(zelk::COSInternedID name) override { return class_.findMethods(name); }
    zelk::COSInterfacePtr findProperty(zelk::COSInternedID name) override { return class_.findProperty(name); }
    void visitMethods(zelk::COSVisitor<zelk::COSInterface*>& visitor) override { class_.visitMethods(visitor); }
    void visitProperties(zelk::COSVisitor<zelk::COSInterface*>& visitor) override { class_.visitProperties(visitor); }
    void visitDeclaredMethods(zelk::COSVisitor<zelk::COSInterface*>& visitor) override {
        class_.visitDeclaredMethods(visitor);
    }
    void visitDeclaredProperties(zelk::COSVisitor<zelk::COSInterface*>& visitor) override {
        class_.visitDeclaredProperties(visitor);
    }
    zelk::COSIteratorPtr getEnumerationMembers() override { return class_.getEnumerationMembers(); }
    void getClassAttributeNames(bool includeHidden, std::vector<std::string>& names) const override {
        class_.getClassAttributeNames(includeHidden, names);
    }
    void getPropertyAttributeNames(bool includeHidden, std::vector<std::string>& names) const override {
        class_.getPropertyAttributeNames(includeHidden, names);
    }
    void getMethodAttributeNames(bool includeHidden, std::vector<std::string>& names) const override {
        class_.getMethodAttributeNames(includeHidden, names);
    }
    void getEventAttributeNames(bool includeHidden, std::vector<std::string>& names) const override {
        class_.getEventAttributeNames(includeHidden, names);
    }

protected:
    /// `cls` outlives this object.
    explicit ForwardingClass(zelk::COSClass& cls) noexcept : class_(cls) {}
    ~ForwardingClass() = default;

private:
    zelk::COSClass& class_;
};

}  // namespace python_host
