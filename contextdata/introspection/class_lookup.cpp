#include "contextdata/introspection/class_lookup.h"

#include "contextdata/identity/interning.h"
#include "contextdata/introspection.h"
#include "host/class_objects.h"
#include "host/i18n.h"

namespace ZELKIntrospection {

using contextdata::identity::internName;
using contextdata::introspection::isDefined;
using foundation::core::except::InterruptException;
using zelk::COSClass;

namespace {

/// A class that cannot be looked up is no class to the asker; only the interrupt is theirs to see.
template <class LookUp>
COSClass* guarded(LookUp lookUp) {
    try {
        return lookUp();
    } catch (const InterruptException&) {
        throw;
    } catch (...) {
        return nullptr;
    }
}

COSClass* definedClass(zelk::COSInternedID id) {
    COSClass* cls = COSClass::getClass(id);
    return isDefined(cls) ? cls : nullptr;
}

}  // namespace

COSClass* getCOSClass(const std::u16string& className) {
    return guarded([&] { return definedClass(internName(fl::i18n::to_string(className))); });
}

COSClass* getCOSClass(const ZELKContextData::ResolvedClassID& id) {
    return guarded([&] { return COSClass::getClass(id.get()); });
}

COSClass* getCOSClass(const qxArray* value) {
    if (value == nullptr) {
        return nullptr;
    }
    const zelk::COSInternedID id = omGetCOSClassID(value);
    return guarded([&] { return definedClass(id); });
}

bool isZELKClass(const std::u16string& className) { return getCOSClass(className) != nullptr; }

bool isZELKClass(const ZELKContextData::ResolvedClassID& id) { return getCOSClass(id) != nullptr; }

bool isZELKObject(const qxArray* value) { return getCOSClass(value) != nullptr; }

bool isHiddenZELKClass(const std::u16string& className) {
    const COSClass* cls = getCOSClass(className);
    return cls != nullptr && cls->isHidden();
}

bool isZELKClassDerivedFrom(const std::u16string& className, const std::u16string& baseName) {
    const COSClass* cls = getCOSClass(className);
    return cls != nullptr && cls->isSubclassOf(internName(fl::i18n::to_string(baseName)));
}

bool isZELKClassDerivedFrom(const ZELKContextData::ResolvedClassID& cls, const ZELKContextData::ResolvedClassID& base) {
    const COSClass* object = getCOSClass(cls);
    return object != nullptr && object->isSubclassOf(internName(base.get().view()));
}

}  // namespace ZELKIntrospection
