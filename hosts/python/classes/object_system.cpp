#include "hosts/python/classes/object_system.h"

#include <Python.h>

#include "host/array_library.h"
#include "hosts/python/classes/array_priority.h"
#include "hosts/python/classes/class_registry.h"
#include "hosts/python/classes/resolution_order.h"
#include "hosts/python/errors.h"
#include "hosts/python/interning.h"
#include "hosts/python/values/value_kinds.h"

namespace python_host {

namespace {

constexpr std::int32_t noClass = 0;

bool isKind(std::int32_t number) noexcept { return kindName(static_cast<qxClassID>(number)) != nullptr; }

std::int32_t numberOfKind(const std::string& name) noexcept {
    constexpr auto last = static_cast<std::int32_t>(qxClassID::functionHandle);
    for (std::int32_t number = 1; number <= last; ++number) {
        if (isKind(number) && name == kindName(static_cast<qxClassID>(number))) {
            return number;
        }
    }
    return noClass;
}

PyTypeObject* typeOf(std::int32_t number) {
    const ClassObject* cls = ClassRegistry::instance().numbered(number);
    return cls == nullptr ? nullptr : cls->type();
}

/// The language asks the more special class first; among unrelated classes arrays go by their priorities.
bool precedes(PyTypeObject* type, PyTypeObject* other) {
    if (derivesFrom(type, other) || derivesFrom(other, type)) {
        return derivesFrom(type, other);
    }
    const auto priority = arrayPriorityOf(type);
    const auto otherPriority = arrayPriorityOf(other);
    return priority && otherPriority && *priority > *otherPriority;
}

class LiveObjectSystem final : public ObjectSystem {
public:
    std::int32_t getClassNumber(const std::string& className) override {
        if (const std::int32_t kind = numberOfKind(className); kind != noClass) {
            return kind;
        }
        const PendingErrorGuard pending;
        const ClassObject* cls = ClassRegistry::instance().find(internName(className));
        return cls == nullptr ? noClass : cls->number();
    }

    bool isDerivedFrom(std::int32_t cls, std::int32_t base) override {
        if (isKind(cls)) {
            return cls == base;
        }
        PyTypeObject* type = typeOf(cls);
        PyTypeObject* baseType = typeOf(base);
        return type != nullptr && baseType != nullptr && derivesFrom(type, baseType);
    }

    bool hasPrecedenceOver(std::int32_t cls, std::int32_t other) override {
        const PendingErrorGuard pending;
        PyTypeObject* type = typeOf(cls);
        PyTypeObject* otherType = typeOf(other);
        return type != nullptr && otherType != nullptr && type != otherType && precedes(type, otherType);
    }
};

}  // namespace

ObjectSystem& objectSystem() {
    static LiveObjectSystem system;
    return system;
}

}  // namespace python_host
