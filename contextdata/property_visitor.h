// Collects the properties that one class declares and that the asker may be offered.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "contextdata/export.h"
#include "contextdata/property_info.h"
#include "host/class_system.h"

namespace ZELKContextData {

class ClassInfo;

/// The names of the attributes by which an author says that a property has a getter of its own. Built at the first
/// call, never changed; any thread.
CONTEXTDATA_API const std::vector<std::string>& getAttributesToTreatAsHavingCustomGetters();

/// The visitor that the class system leads over the properties of a class, for `ClassInfo::getProperties`.
///
/// What the host throws while a property is read passes out, save in the question for a custom getter: a host that
/// fails there is taken for a yes. It serves one query at a time, on the interpreter thread. Copies are member by
/// member: they refer to the same class objects.
class CONTEXTDATA_API PropertyVisitorMutable : public zelk::COSVisitor<zelk::COSInterface*> {
public:
    /// `visitedClass` is borrowed, for the life of the visitor. The options are those of `PropertyInfo::GetOptions`.
    explicit PropertyVisitorMutable(const ClassInfo* visitedClass);

    PropertyVisitorMutable(const PropertyVisitorMutable&) = default;
    PropertyVisitorMutable(PropertyVisitorMutable&&) = default;
    PropertyVisitorMutable& operator=(const PropertyVisitorMutable&) = default;
    PropertyVisitorMutable& operator=(PropertyVisitorMutable&&) = default;
    ~PropertyVisitorMutable() override;

    /// Forgets what was collected and takes the options, whose accessing class is borrowed until the next call.
    void clear(const PropertyInfo::GetOptions& options);

    void visit(zelk::COSInterface* node) override;

    /// Files one property: among the collected ones, among the hidden ones, or nowhere. A null property is passed over.
    virtual void visit(zelk::COSInterfacePtr handle, zelk::COSPropInfo* property);

protected:
    /// Forgets what was collected and keeps the options.
    void clear();

    /// Whether the asking class, or a class that it derives from, is on one of the property's access lists, for
    /// reading or for writing, whichever access the options test.
    bool hasAccessingClass(zelk::COSPropInfo* property) const;

private:
    friend class ClassInfo;

    CONTEXTDATA_INSIDE bool isAccessible(zelk::COSPropInfo* property) const;
    CONTEXTDATA_INSIDE bool hasAccessibleLevel(zelk::COSPropInfo* property) const;

    const ClassInfo* visitedClass_;
    std::vector<std::int32_t> accessibility_;
    std::vector<std::int32_t> accessKinds_;
    const ClassInfo* accessingClass_ = nullptr;
    bool includeHidden_ = false;
    std::vector<PropertyInfo> collected_;
    std::vector<PropertyInfo> hidden_;
    std::vector<zelk::COSInternedID> customGetterFlags_;
};

}  // namespace ZELKContextData
