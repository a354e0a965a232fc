#include "contextdata/identity/interning.h"
#include "contextdata/introspection.h"
#include "contextdata/introspection/class_lookup.h"
#include "host/i18n.h"

namespace ZELKIntrospection {

using contextdata::identity::internName;
using contextdata::introspection::hasAnyMethod;
using contextdata::introspection::isDefined;
using foundation::core::except::InterruptException;
using zelk::COSClass;
using zelk::COSIteratorPtr;

bool hasMethod(const ZELKContextData::ResolvedClassID& id, const std::string& methodName, bool& flag) {
    COSClass* cls = getCOSClass(id);
    if (!isDefined(cls)) {
        return false;
    }
    const zelk::COSInternedID name = internName(methodName);
    if (!hasAnyMethod(*cls, name)) {
        return false;
    }
    // Asking has used up the first walk; a second one yields the method that decides the flag.
    const COSIteratorPtr methods = cls->findMethods(name);
    if (!methods) {
        return false;
    }
    const zelk::COSInterfacePtr first = methods->nextElement();
    const zelk::COSMethodInfo* method = zelk::cosiToMethod(first.get());
    if (method == nullptr) {
        return false;
    }
    flag = method->isStatic();
    return true;
}

bool hasMethod(const std::u16string& className, const std::string& methodName, bool& flag) {
    try {
        const std::string narrow = fl::i18n::to_string(className);
        return hasMethod(ZELKContextData::ResolvedClassID::fromLegacyString(narrow), methodName, flag);
    } catch (const InterruptException&) {
        throw;
    } catch (...) {
        return false;
    }
}

bool hasMethod(const qxArray* value, const std::string& methodName) {
    COSClass* cls = getCOSClass(value);
    return cls != nullptr && hasAnyMethod(*cls, internName(methodName));
}

bool hasProperty(const qxArray* value, const std::string& propertyName) {
    COSClass* cls = getCOSClass(value);
    return cls != nullptr && cls->findProperty(internName(propertyName)) != nullptr;
}

}  // namespace ZELKIntrospection
