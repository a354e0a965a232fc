#include <algorithm>
#include <set>
#include <string>

#include "contextdata/exclusion_tables.h"
#include "contextdata/introspection.h"
#include "host/dispatcher.h"
#include "host/i18n.h"

namespace ZELKIntrospection {

namespace {

/// What the value says of itself is enough for the built-in kinds.
std::int32_t classNumberOf(const qxArray* value) {
    const qxClassID id = qxGetClassID(value);
    return id > qxClassID::functionHandle ? qxGetFullClassID(value) : static_cast<std::int32_t>(id);
}

}  // namespace

bool isNoDotMethodClass(const qxArray* value) {
    if (value == nullptr) {
        return false;
    }
    const std::int32_t cls = classNumberOf(value);
    ObjectSystem& objects = Dispatcher::getDispatcher().getObjectSystem();
    const std::set<std::u16string> names = ZELKContextData::getNoDotMethodClassesExcludeSet();
    const fl::i18n::codecvt_ustring_to_ascii narrowing(false);
    return std::any_of(names.begin(), names.end(), [&](const std::u16string& name) {
        return objects.isDerivedFrom(cls, objects.getClassNumber(fl::i18n::to_string(name, narrowing)));
    });
}

}  // namespace ZELKIntrospection
