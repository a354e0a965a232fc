#include "hosts/python/classes/class_registry.h"
#include "hosts/python/errors.h"
#include "hosts/python/python_host.h"

namespace python_host {

std::optional<StructureStamp> stampOf(PyTypeObject* type) noexcept {
    const PendingErrorGuard pending;
    try {
        const std::uint64_t version = ClassRegistry::instance().objectOf(type).structureVersion();
        return version == 0 ? std::nullopt : std::optional(StructureStamp{type, version});
    } catch (...) {
        return std::nullopt;
    }
}

}  // namespace python_host
