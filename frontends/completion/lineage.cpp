#include "frontends/completion/lineage.h"

#include <unordered_set>

#include "frontends/completion/ask.h"
#include "frontends/completion/superclasses.h"
#include "host/i18n.h"
#include "host/name_resolution.h"

namespace contextdata::completion {

using zelk::COSInternedID;
using ZELKContextData::ClassInfo;
using ZELKContextData::ResolvedClassID;

namespace {

class ClassAlone final : public ClassInfo {
public:
    explicit ClassAlone(COSInternedID id) {
        structure_.classID = id;
        structure_.className = unlessItFails(
            [&] { return fl::i18n::to_ustring(zelk::nameresolution::getBaseClassNameFromFullName(id.view())); });
    }
};

/// Without recursion, as a chain of classes may be longer than the stack is deep.
std::vector<COSInternedID> lineageOf(COSInternedID id) {
    std::vector<COSInternedID> order;
    std::unordered_set<COSInternedID> seen;
    std::vector<COSInternedID> toVisit = {id};
    while (!toVisit.empty()) {
        const COSInternedID next = toVisit.back();
        toVisit.pop_back();
        if (!seen.insert(next).second) {
            continue;
        }
        order.push_back(next);
        const std::vector<COSInternedID> superclasses = superclassesOf(next);
        toVisit.insert(toVisit.end(), superclasses.rbegin(), superclasses.rend());
    }
    return order;
}

}  // namespace

Lineage::Lineage(const ResolvedClassID& id) {
    const COSInternedID canonical = canonicalId(id);
    if (canonical.isEmpty()) {
        return;
    }
    for (const COSInternedID cls : lineageOf(canonical)) {
        classes_.push_back(std::make_shared<ClassAlone>(cls));
    }
    structure_ = classes_.front()->getSuperclassInfo();
    structure_.superclasses.assign(classes_.begin() + 1, classes_.end());
}

Lineage::~Lineage() = default;

}  // namespace contextdata::completion
