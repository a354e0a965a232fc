#include "contextdata/class_info.h"

#include <unordered_set>

#include "contextdata/classinfo/superclass.h"
#include "contextdata/introspection.h"
#include "host/class_objects.h"
#include "host/class_system.h"
#include "host/i18n.h"
#include "host/name_resolution.h"

namespace ZELKContextData {

using zelk::COSClass;
using zelk::COSInternedID;

namespace {

/// A plain loop, for the way into an algorithm is dearer than the question; and apart from the usual case, which would
/// have to save registers for it.
template <class Wanted>
[[gnu::noinline]] bool isOneOfSeveralA(const std::vector<std::shared_ptr<ClassInfo>>& superclasses,
                                       const Wanted& wanted) {
    for (const std::shared_ptr<ClassInfo>& superclass : superclasses) {
        if (superclass->isA(wanted)) {
            return true;
        }
    }
    return false;
}

/// Most classes have one superclass, and only pass the question on.
template <class Wanted>
bool isAnyA(const std::vector<std::shared_ptr<ClassInfo>>& superclasses, const Wanted& wanted) {
    return superclasses.size() == 1 ? superclasses.front()->isA(wanted) : isOneOfSeveralA(superclasses, wanted);
}

}  // namespace

ClassInfo::ClassInfo() : propertyVisitor_(this), methodVisitor_(this) {}

ClassInfo::ClassInfo(const std::u16string& contextFile, const std::u16string& className)
    : ClassInfo(ResolvedClassID(contextFile, className)) {}

/// The end of the way from the root of a tree to the class that is being filled. Names may lead in a circle, by older
/// forms for one, and a tree of them would have no end; so no class stands on the way twice.
struct ClassInfo::Branch {
    using Way = std::unordered_set<COSInternedID>;

    Branch(COSInternedID end, Way& classes) : id(end), way(classes) { way.insert(id); }
    Branch(const Branch&) = delete;
    Branch& operator=(const Branch&) = delete;
    ~Branch() { way.erase(id); }

    COSInternedID id;
    Way& way;
};

ClassInfo::ClassInfo(const ResolvedClassID& id) : ClassInfo() {
    Branch::Way way;
    fill(Branch(id.get(), way));
}

// The class of an object keeps the name under which the class system interned it; callers tell by the qualification
// which package the object is from.
ClassInfo::ClassInfo(const qxArray* value) : ClassInfo() {
    if (value == nullptr || !omIsZELK(value) || !ZELKIntrospection::isZELKObject(value)) {
        return;
    }
    structure_.classID = ResolvedClassID(value).get();
    structure_.className = fl::i18n::to_ustring(structure_.classID.view());
    Branch::Way way;
    structure_.superclasses = superclassesOf(Branch(structure_.classID, way));
}

// The visitors are working space: they go on working for the source.
ClassInfo::ClassInfo(const ClassInfo&) = default;
ClassInfo& ClassInfo::operator=(const ClassInfo&) = default;
ClassInfo::~ClassInfo() = default;

void ClassInfo::fill(const Branch& branch) {
    structure_.classID = branch.id;
    if (branch.id.isEmpty()) {
        return;
    }
    structure_.className = fl::i18n::to_ustring(zelk::nameresolution::getBaseClassNameFromFullName(branch.id.view()));
    structure_.superclasses = superclassesOf(branch);
}

std::vector<std::shared_ptr<ClassInfo>> ClassInfo::superclassesOf(const Branch& branch) {
    std::vector<std::shared_ptr<ClassInfo>> superclasses;
    COSClass* cls = COSClass::getClass(branch.id);
    if (cls == nullptr) {
        return superclasses;
    }
    const zelk::COSIDIteratorPtr ids = cls->getSuperclasses();
    while (ids && ids->hasMoreElements()) {
        superclasses.push_back(superclassNamed(ids->nextElement(), branch));
    }
    return superclasses;
}

std::shared_ptr<ClassInfo> ClassInfo::superclassNamed(COSInternedID listedID, const Branch& branch) {
    std::shared_ptr<ClassInfo> superclass = std::make_shared<Superclass>();
    const COSClass* cls = COSClass::getClass(listedID);
    const COSInternedID id = cls == nullptr ? COSInternedID() : cls->getID();
    if (!branch.way.contains(id)) {
        superclass->fill(Branch(id, branch.way));
    }
    return superclass;
}

bool ClassInfo::isA(const COSInternedID& id) const {
    return id == structure_.classID || isAnyA(structure_.superclasses, id);
}

bool ClassInfo::isA(const std::u16string& name) const {
    return name == structure_.className || isAnyA(structure_.superclasses, name);
}

}  // namespace ZELKContextData
