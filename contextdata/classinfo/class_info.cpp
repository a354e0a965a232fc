#include "contextdata/class_info.h"

#include <algorithm>

#include "contextdata/introspection.h"
#include "host/class_objects.h"
#include "host/class_system.h"
#include "host/i18n.h"
#include "host/name_resolution.h"

namespace ZELKContextData {

using zelk::COSClass;
using zelk::COSInternedID;

namespace {

/// Opens the constructor of unknown classes, so that object and count come from one piece of memory.
class Superclass final : public ClassInfo {};

}  // namespace

ClassInfo::ClassInfo() : propertyVisitor_(this), methodVisitor_(this) {}

ClassInfo::ClassInfo(const std::u16string& contextFile, const std::u16string& className)
    : ClassInfo(ResolvedClassID(contextFile, className)) {}

ClassInfo::ClassInfo(const ResolvedClassID& id) : ClassInfo() { fill(id.get()); }

// The class of an object keeps the name under which the class system interned it; callers tell by the qualification
// which package the object is from.
ClassInfo::ClassInfo(const qxArray* value) : ClassInfo() {
    if (value == nullptr || !omIsZELK(value) || !ZELKIntrospection::isZELKObject(value)) {
        return;
    }
    structure_.classID = ResolvedClassID(value).get();
    structure_.className = fl::i18n::to_ustring(structure_.classID.view());
    structure_.superclasses = superclassesOf(structure_.classID);
}

// The visitors are working space: they go on working for the source.
ClassInfo::ClassInfo(const ClassInfo&) = default;
ClassInfo& ClassInfo::operator=(const ClassInfo&) = default;
ClassInfo::~ClassInfo() = default;

void ClassInfo::fill(COSInternedID id) {
    structure_.classID = id;
    if (id.isEmpty()) {
        return;
    }
    structure_.className = fl::i18n::to_ustring(zelk::nameresolution::getBaseClassNameFromFullName(id.view()));
    structure_.superclasses = superclassesOf(id);
}

std::vector<std::shared_ptr<ClassInfo>> ClassInfo::superclassesOf(COSInternedID id) {
    std::vector<std::shared_ptr<ClassInfo>> superclasses;
    COSClass* cls = COSClass::getClass(id);
    if (cls == nullptr) {
        return superclasses;
    }
    const zelk::COSIDIteratorPtr ids = cls->getSuperclasses();
    while (ids && ids->hasMoreElements()) {
        superclasses.push_back(superclassNamed(ids->nextElement()));
    }
    return superclasses;
}

std::shared_ptr<ClassInfo> ClassInfo::superclassNamed(COSInternedID listedID) {
    std::shared_ptr<ClassInfo> superclass = std::make_shared<Superclass>();
    if (const COSClass* cls = COSClass::getClass(listedID)) {
        superclass->fill(cls->getID());
    }
    return superclass;
}

bool ClassInfo::isA(const COSInternedID& id) const {
    return id == structure_.classID ||
           std::any_of(structure_.superclasses.begin(), structure_.superclasses.end(),
                       [&](const std::shared_ptr<ClassInfo>& superclass) { return superclass->isA(id); });
}

bool ClassInfo::isA(const std::u16string& name) const {
    return name == structure_.className ||
           std::any_of(structure_.superclasses.begin(), structure_.superclasses.end(),
                       [&](const std::shared_ptr<ClassInfo>& superclass) { return superclass->isA(name); });
}

}  // namespace ZELKContextData
