#include "frontends/python/src/crowded_object.h"

#include <utility>

namespace contextdata::python {

ListingPtr CrowdedObject::find(const ListingPtr& ofClass, std::uint64_t versionOfNames) const {
    return ofClass_ == ofClass && version_ == versionOfNames ? listing_ : nullptr;
}

void CrowdedObject::keep(ListingPtr ofClass, std::uint64_t versionOfNames, ListingPtr listing) {
    // What was kept goes last, when all of this is as it will be: its end may run code that comes back here.
    ofClass_.swap(ofClass);
    listing_.swap(listing);
    version_ = versionOfNames;
}

CrowdedObject& crowdedObject() {
    static CrowdedObject& object = *new CrowdedObject;
    return object;
}

}  // namespace contextdata::python
