// From a class to its description.
#pragma once

#include "contextdata/resolved_class_id.h"
#include "frontends/completion/class_description.h"

namespace contextdata::completion {

/// Which members are described.
struct DescribeOptions {
    /// Whose view is wanted: only what the code of that class may use is described. Null for all there is.
    ZELKContextData::ResolvedClassID asker;
    bool includeHidden = false;  ///< members and attributes that their authors hide
};

/// Describes a class with all that it inherits; a name that several classes declare is the member that the class itself
/// would use. A superclass's private members are none of the class's and are left out, save for an asker to whom they
/// belong. Constructors are left out, operator overloads are not.
///
/// An unknown class has an empty description. What the host fails at is missing from it; the interrupt passes.
/// Interpreter thread. The cost grows with the members of the class and with the number of its ancestors.
ClassDescription describeClass(const ZELKContextData::ResolvedClassID& id, const DescribeOptions& options = {});

}  // namespace contextdata::completion
