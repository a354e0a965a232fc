// Collects the methods that one class declares and that the asker may be offered.
#pragma once

#include <cstdint>
#include <vector>

#include "contextdata/export.h"
#include "contextdata/method_info.h"
#include "host/class_system.h"

namespace ZELKContextData {

class ClassInfo;

/// The visitor that the class system leads over the methods of a class, for `ClassInfo::getMethods`.
///
/// It raises nothing of its own; what the host throws while a method is read passes out. It serves one query at a
/// time, on the interpreter thread. Copies are member by member: they refer to the same class objects.
class CONTEXTDATA_API MethodVisitorMutable : public zelk::COSVisitor<zelk::COSInterface*> {
public:
    /// `visitedClass` is borrowed, for the life of the visitor. In the context that it starts with, no method is
    /// collected.
    explicit MethodVisitorMutable(const ClassInfo* visitedClass);

    MethodVisitorMutable(const MethodVisitorMutable&) = default;
    MethodVisitorMutable(MethodVisitorMutable&&) = default;
    MethodVisitorMutable& operator=(const MethodVisitorMutable&) = default;
    MethodVisitorMutable& operator=(MethodVisitorMutable&&) = default;
    ~MethodVisitorMutable() override;

    /// Forgets what was collected and takes the options, whose accessing class is borrowed until the next call.
    void clear(const MethodInfo::GetOptions& options);

    void visit(zelk::COSInterface* node) override;

    /// Files one method: among the collected ones, among the hidden ones, or nowhere. A null method is passed over.
    virtual void visit(zelk::COSInterfacePtr handle, zelk::COSMethodInfo* method);

protected:
    /// Forgets what was collected and keeps the options.
    void clear();

    /// Whether the asking class, or a class that it derives from, is on the method's access list.
    bool hasAccessingClass(zelk::COSMethodInfo* method) const;

private:
    friend class ClassInfo;

    CONTEXTDATA_INSIDE bool isAccessible(zelk::COSMethodInfo* method) const;

    const ClassInfo* visitedClass_;
    std::vector<std::int32_t> accessibility_;
    const ClassInfo* accessingClass_ = nullptr;
    MethodInfo::GetContext context_ = MethodInfo::GetContext::none;
    bool includeConstructors_ = false;
    bool includeOperatorOverloads_ = false;
    bool includeHidden_ = false;
    std::vector<MethodInfo> collected_;
    std::vector<MethodInfo> hidden_;
};

}  // namespace ZELKContextData
