#include "hosts/python/classes/class_registry.h"

#include <algorithm>
#include <string>
#include <utility>

#include "hosts/python/classes/qualified_names.h"
#include "hosts/python/errors.h"
#include "hosts/python/folders/live_paths.h"
#include "hosts/python/interning.h"
#include "hosts/python/python_host.h"

namespace python_host {

namespace {

/// Class objects of dead types that are kept, for callers that hold one while its type dies.
constexpr std::size_t retiredLimit = 256;

/// Some tens of megabytes.
constexpr std::size_t keptMembersLimit = 400'000;

bool isCompiledIn(const PyTypeObject* type) { return (type->tp_flags & Py_TPFLAGS_HEAPTYPE) == 0; }

}  // namespace

ClassRegistry& ClassRegistry::instance() {
    static ClassRegistry& registry = *new ClassRegistry;
    return registry;
}

ClassObject* ClassRegistry::known(PyTypeObject* type) {
    const auto found = objects_.find(type);
    const bool current = found != objects_.end() && found->second->type() == type;
    return current ? found->second.get() : nullptr;
}

ClassObject& ClassRegistry::objectOf(PyTypeObject* type) {
    if (ClassObject* object = known(type)) {
        return *object;
    }
    // Making the reference may start a garbage collection, and that may come back here.
    Ref weakType = Ref::steal(orThrow(PyWeakref_NewRef(asObject(type), nullptr)));
    ClassObject* object = known(type);
    return object != nullptr ? *object : add(type, std::move(weakType));
}

ClassObject& ClassRegistry::add(PyTypeObject* type, Ref weakType) {
    if (objects_.size() >= sweepAt_) {
        sweep();
    }
    Handle& place = objects_[type];
    if (place) {
        retire(place);
    }
    const std::int32_t number = takeNumber();
    place = Handle(new ClassObject(std::move(weakType), number));
    numbered_[indexOf(number)] = place.get();
    return *place;
}

ClassObject* ClassRegistry::numbered(std::int32_t number) const noexcept {
    const bool isGiven = number > lastBuiltInNumber && indexOf(number) < numbered_.size();
    return isGiven ? numbered_[indexOf(number)] : nullptr;
}

std::int32_t ClassRegistry::takeNumber() {
    if (freeNumbers_.empty()) {
        numbered_.push_back(nullptr);
        return lastBuiltInNumber + static_cast<std::int32_t>(numbered_.size());
    }
    const std::int32_t number = freeNumbers_.back();
    freeNumbers_.pop_back();
    return number;
}

void ClassRegistry::giveBackNumber(std::int32_t number) {
    numbered_[indexOf(number)] = nullptr;
    freeNumbers_.push_back(number);
}

void ClassRegistry::sweep() {
    std::vector<Handle> dead;
    for (const auto& [type, object] : objects_) {
        if (object->type() == nullptr) {
            dead.push_back(object);
        }
    }
    std::erase_if(objects_, [](const auto& entry) { return entry.second->type() == nullptr; });
    for (Handle& object : dead) {
        retire(std::move(object));
    }
    sweepAt_ = std::max<std::size_t>(128, objects_.size() * 2);
}

void ClassRegistry::retire(Handle cls) {
    leaveSlots(*cls);
    forgetName(*cls);
    cls->dropMembers();
    retired_.push_back(std::move(cls));
    if (retired_.size() > retiredLimit) {
        giveBackNumber(retired_.front()->number());
        retired_.pop_front();
    }
}

void ClassRegistry::makeRoomFor(std::size_t members) {
    keptMembers_ += members;
    if (keptMembers_ <= keptMembersLimit) {
        return;
    }
    for (const auto& [type, object] : objects_) {
        object->dropMembers();
    }
    keptMembers_ = members;
}

ClassObject* ClassRegistry::find(zelk::COSInternedID name) {
    if (name.isEmpty()) {
        return nullptr;
    }
    if (ClassObject* bearer = bearerOf(name)) {
        return bearer;
    }
    return qualificationLength(name.view()) != 0 ? nullptr : findByPath(name.view());
}

/// The class that had a name when it was last asked for its own, if it still has it.
ClassObject* ClassRegistry::bearerOf(zelk::COSInternedID name) {
    const auto found = byName_.find(name);
    PyTypeObject* type = found == byName_.end() ? nullptr : found->second->type();
    ClassObject* cls = type == nullptr ? nullptr : known(type);
    // Asking may rename the class, and with that change the map.
    return cls != nullptr && cls->getID() == name ? cls : nullptr;
}

ClassObject* ClassRegistry::findByPath(std::string_view name) {
    PyObject* object = findPath(name);
    if (object == nullptr) {
        PyObject* builtins = findPath("builtins");
        object = builtins == nullptr ? nullptr : walkPath(builtins, name);
    }
    return object != nullptr && PyType_Check(object) ? &objectOf(asType(object)) : nullptr;
}

zelk::COSInternedID ClassRegistry::nameFor(const ClassObject& cls, const TypeName& name) {
    const zelk::COSInternedID base = internName(name.full());
    const bool plain = name.isReachable() || (isCompiledIn(cls.type()) && mayBear(cls, base));
    if (plain) {
        leaveSlots(cls);
    }
    const zelk::COSInternedID id = plain ? base : qualifiedNameFor(cls, base);
    forgetName(cls);
    byName_[id] = &cls;
    return id;
}

void ClassRegistry::forgetName(const ClassObject& cls) {
    const auto found = byName_.find(cls.lastID());
    if (found != byName_.end() && found->second == &cls) {
        byName_.erase(found);
    }
}

/// Types that are compiled in live for ever, so the first to bear a name that leads nowhere may keep it.
bool ClassRegistry::mayBear(const ClassObject& cls, zelk::COSInternedID base) {
    if (base.isEmpty() || findPath(base.view()) != nullptr) {
        return false;
    }
    const auto bearer = byName_.find(base);
    if (bearer == byName_.end() || bearer->second == &cls) {
        return true;
    }
    const PyTypeObject* other = bearer->second->type();
    return other == nullptr || !isCompiledIn(other);
}

zelk::COSInternedID ClassRegistry::qualifiedNameFor(const ClassObject& cls, zelk::COSInternedID base) {
    const auto previous = slotOf_.find(&cls);
    if (previous != slotOf_.end() && previous->second != base) {
        leaveSlots(cls);
    }
    auto& slots = slots_[base];
    auto slot = std::find(slots.begin(), slots.end(), &cls);
    if (slot == slots.end()) {
        slot = std::find_if(slots.begin(), slots.end(),
                            [](const ClassObject* other) { return other == nullptr || other->type() == nullptr; });
    }
    if (slot == slots.end()) {
        slot = slots.insert(slots.end(), nullptr);
    }
    *slot = &cls;
    slotOf_[&cls] = base;
    return internName(qualify(static_cast<std::size_t>(slot - slots.begin()) + 1, base.view()));
}

void ClassRegistry::leaveSlots(const ClassObject& cls) {
    const auto base = slotOf_.find(&cls);
    if (base == slotOf_.end()) {
        return;
    }
    auto& slots = slots_[base->second];
    std::replace(slots.begin(), slots.end(), &cls, static_cast<const ClassObject*>(nullptr));
    while (!slots.empty() && slots.back() == nullptr) {
        slots.pop_back();
    }
    if (slots.empty()) {
        slots_.erase(base->second);
    }
    slotOf_.erase(base);
}

zelk::COSInternedID classIdOf(PyTypeObject* type) {
    const PendingErrorGuard pending;
    return ClassRegistry::instance().objectOf(type).getID();
}

}  // namespace python_host

zelk::COSClass* zelk::COSClass::getClass(COSInternedID id) {
    const python_host::PendingErrorGuard pending;
    return python_host::ClassRegistry::instance().find(id);
}
