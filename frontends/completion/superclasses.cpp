#include "frontends/completion/superclasses.h"

#include "contextdata/introspection.h"
#include "frontends/completion/ask.h"
#include "host/class_system.h"

namespace contextdata::completion {

using zelk::COSInternedID;
using ZELKContextData::ResolvedClassID;

COSInternedID canonicalId(const ResolvedClassID& id) {
    const zelk::COSClass* cls = ZELKIntrospection::getCOSClass(id);
    return cls == nullptr ? COSInternedID() : unlessItFails([&] { return cls->getID(); });
}

std::vector<COSInternedID> superclassesOf(COSInternedID id) {
    zelk::COSClass* cls = ZELKIntrospection::getCOSClass(ResolvedClassID::fromKnownResolvedClassID(id));
    if (cls == nullptr) {
        return {};
    }
    return unlessItFails([&] {
        std::vector<COSInternedID> superclasses;
        const zelk::COSIDIteratorPtr ids = cls->getSuperclasses();
        while (ids && ids->hasMoreElements()) {
            const COSInternedID superclass = canonicalId(ResolvedClassID::fromKnownResolvedClassID(ids->nextElement()));
            if (!superclass.isEmpty()) {
                superclasses.push_back(superclass);
            }
        }
        return superclasses;
    });
}

}  // namespace contextdata::completion
