#include "hosts/memory/property_read.h"

#include "hosts/memory/failure.h"
#include "hosts/memory/namespace.h"
#include "hosts/memory/value_making.h"

namespace memory_host {

namespace {

bool fillsList(const qxArray* object, std::string_view name) {
    auto* space = dynamic_cast<Namespace*>(object->node.get());
    return space != nullptr && space->fillList(name);
}

}  // namespace

qxUniqueArray readProperty(const qxArray* object, std::size_t index, std::string_view name) {
    if (index >= object->elementCount()) {
        throw HostFailure("the object has no element of that index");
    }
    if (fillsList(object, name)) {
        // Nobody looks at the list itself.
        return makeValue(qxClassID::cell, "cell", {0, 0});
    }
    if (!object->hasProperty(index, name)) {
        throw HostFailure("the object has no property of that name");
    }
    return sharedClaim(object->property(index, name));
}

}  // namespace memory_host
