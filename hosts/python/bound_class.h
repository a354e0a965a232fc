// A class under the name by which a module offers it.
#pragma once

#include <boost/smart_ptr/intrusive_ptr.hpp>

#include <utility>

#include "host/class_system.h"
#include "hosts/python/class_object.h"

namespace python_host {

/// Answers as the class itself, save for its name: that is the namespace's and the bound name, so that what is listed
/// after "pandas." is "DataFrame" wherever the class was made. The id stays the canonical one.
class BoundClass final : public zelk::COSClass {
public:
    BoundClass(boost::intrusive_ptr<ClassObject> cls, zelk::COSInternedID name, bool hidden) noexcept
        : class_(std::move(cls)), name_(name), hidden_(hidden) {}

    const zelk::COSClassDefinition* getDefinition(bool load) override { return class_->getDefinition(load); }
    zelk::COSInternedID getID() const override { return class_->getID(); }
    const char* getName() const override { return name_.c_str(); }
    /// Bound by a name that begins with an underscore.
    bool isHidden() const override { return hidden_; }
    bool hasDynamicProperties() const override { return class_->hasDynamicProperties(); }
    bool isSubclassOf(zelk::COSInternedID base) const override { return class_->isSubclassOf(base); }
    zelk::COSIteratorPtr findMethods(zelk::COSInternedID name) override { return class_->findMethods(name); }
    zelk::COSInterfacePtr findProperty(zelk::COSInternedID name) override { return class_->findProperty(name); }
    void visitMethods(zelk::COSVisitor<zelk::COSInterface*>& visitor) override { class_->visitMethods(visitor); }
    void visitProperties(zelk::COSVisitor<zelk::COSInterface*>& visitor) override { class_->visitProperties(visitor); }
    zelk::COSIteratorPtr getEnumerationMembers() override { return class_->getEnumerationMembers(); }

private:
    boost::intrusive_ptr<ClassObject> class_;
    zelk::COSInternedID name_;
    bool hidden_;
};

}  // namespace python_host
