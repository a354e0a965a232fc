#include "contextdata/introspection.h"
#include "contextdata/values.h"

bool isObjectOrIsOpaque(const qxArray* value) {
    if (value == nullptr) {
        return false;
    }
    const qxClassID id = qxGetClassID(value);
    return id == qxClassID::opaque || id == qxClassID::object;
}

void getOpaqueObjectMethods(const qxArray* value, std::vector<std::u16string>& names) {
    ZELKIntrospection::callFunctionOnObject(value, "methods", names);
}

void getOpaqueObjectProperties(const qxArray* value, std::vector<std::u16string>& names) {
    ZELKIntrospection::callFunctionOnObject(value, "properties", names);
}
