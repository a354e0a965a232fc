#include "contextdata/values.h"

qxSharedArray makeSharedPtr(qxArray* value) {
    if (value == nullptr) {
        return {};
    }
    qxSetArrayScope(value, qxArrayScope::none);
    constexpr bool addReference = false;
    return {value, addReference};
}

qxSharedArray getSharedProperty(const qxArray* object, const std::string& name, std::uint64_t index) {
    try {
        qxUniqueArray property(qxGetPropertyShared(object, index, name.c_str()));
        qxSharedArray shared = makeSharedPtr(property.get());
        static_cast<void>(property.release());
        return shared;
    } catch (...) {
        return {};
    }
}
