#include "hosts/memory/world_state.h"

#include "hosts/memory/failure.h"
#include "hosts/memory/intern_table.h"

namespace memory_host {

namespace {

constexpr std::size_t firstClassNumber = 19;

}  // namespace

Class& WorldState::classNamed(std::string_view fullName) {
    const zelk::COSInternedID id = intern(fullName);
    if (Class* known = findClass(id)) {
        return *known;
    }
    // The place in the table comes first: a class that cannot be made leaves it null, which is no class.
    Class*& known = classesByName[id];
    const auto number = static_cast<qxClassID>(firstClassNumber + classes.size());
    known = &classes.emplace_back(*this, id, number);
    return *known;
}

Namespace& WorldState::namespaceNamed(std::string_view name) {
    const zelk::COSInternedID id = intern(name);
    if (const auto known = namespacesByName.find(id); known != namespacesByName.end()) {
        return *known->second;
    }
    Namespace& made = namespaces.emplace_back(*this, id);
    namespacesByName[id] = &made;
    return made;
}

Class* WorldState::findClass(zelk::COSInternedID id) const {
    const auto found = classesByName.find(id);
    return found == classesByName.end() ? nullptr : found->second;
}

WorldState& currentWorld() {
    if (standingWorld == nullptr) {
        throw HostFailure("no world stands: make a memory_host::World first");
    }
    return *standingWorld;
}

}  // namespace memory_host
