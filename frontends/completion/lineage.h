// A class and all it derives from, each class once.
#pragma once

#include <memory>
#include <vector>

#include "contextdata/class_info.h"
#include "contextdata/resolved_class_id.h"

namespace contextdata::completion {

/// The class information of a class, made for classes of any shape.
///
/// A plain `ClassInfo` holds one object for every path to every ancestor, which are 2^n for n stacked diamonds. Here
/// all distinct ancestors stand side by side below the class, so that making it, asking it whether it is of some
/// class, and asking it for members take as long as there are classes. For completion that is the same: it wants each
/// name once, and which class a name is of it takes from the class system's own walk (declarations.h).
///
/// Neither copied nor moved, as its visitors refer to it. One query at a time, on the interpreter thread.
class Lineage final : public ZELKContextData::ClassInfo {
public:
    /// Unknown, without classes, for an identity that names no class object. A class at which the host fails stands
    /// without what only it leads to; the interrupt passes. Ends also where classes derive from each other in a circle.
    explicit Lineage(const ZELKContextData::ResolvedClassID& id);

    Lineage(const Lineage&) = delete;
    Lineage& operator=(const Lineage&) = delete;
    ~Lineage() override;

    /// The class itself and its ancestors, depth first, each where it is met first. Each is asked for what it declares
    /// itself and knows of no superclass.
    const std::vector<std::shared_ptr<ZELKContextData::ClassInfo>>& classes() const noexcept { return classes_; }

private:
    std::vector<std::shared_ptr<ZELKContextData::ClassInfo>> classes_;
};

}  // namespace contextdata::completion
