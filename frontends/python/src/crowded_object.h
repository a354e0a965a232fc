// The one listing that is kept of an object: of the last that had very many names of its own.
#pragma once

#include <cstddef>
#include <cstdint>

#include "frontends/python/src/listing.h"

namespace contextdata::python {

/// Who types after the dot of such an object asks for its names at every letter, and reading thousands takes longer
/// than anybody waits gladly. So what its class and itself offer is kept together, for as long as the class's listing
/// is the same and the dictionary with the object's names unchanged, and until another such object is asked for.
class CrowdedObject {
public:
    /// Below this, reading the names anew is fast.
    static constexpr std::size_t fewestNames = 256;

    /// Null when nothing is kept for that listing of a class and that version of the names, which is never 0.
    ListingPtr find(const ListingPtr& ofClass, std::uint64_t versionOfNames) const;

    void keep(ListingPtr ofClass, std::uint64_t versionOfNames, ListingPtr listing);

private:
    ListingPtr ofClass_;
    std::uint64_t version_ = 0;
    ListingPtr listing_;
};

/// The one of the process. It is never destroyed, as the interpreter is gone by then.
CrowdedObject& crowdedObject();

}  // namespace contextdata::python
