// From an interned name to a position in a member table.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "host/interned.h"

namespace python_host {

/// An open table keyed by the address of the name: names are unique, so the address is the identity.
class NameIndex {
public:
    static constexpr std::uint32_t absent = UINT32_MAX;

    /// Adds a name, and gives the place of its value until the next one is added; null when it is there already.
    std::uint32_t* insert(zelk::COSInternedID name) {
        if ((count_ + 1) * 2 > slots_.size()) {
            grow();
        }
        Slot& slot = slotOf(name);
        if (!slot.name.isEmpty()) {
            return nullptr;
        }
        slot.name = name;
        ++count_;
        return &slot.value;
    }

    std::uint32_t find(zelk::COSInternedID name) const {
        return slots_.empty() || name.isEmpty() ? absent : slots_[positionOf(name)].value;
    }

private:
    struct Slot {
        zelk::COSInternedID name;
        std::uint32_t value = absent;
    };

    static std::size_t hashOf(zelk::COSInternedID name) {
        const auto address = reinterpret_cast<std::uintptr_t>(name.c_str());
        return static_cast<std::size_t>((address * 0x9E3779B97F4A7C15ULL) >> 20);
    }

    Slot& slotOf(zelk::COSInternedID name) { return slots_[positionOf(name)]; }

    /// Where the name is, or the free slot where it would go.
    std::size_t positionOf(zelk::COSInternedID name) const {
        const std::size_t mask = slots_.size() - 1;
        std::size_t position = hashOf(name) & mask;
        while (!slots_[position].name.isEmpty() && slots_[position].name != name) {
            position = (position + 1) & mask;
        }
        return position;
    }

    void grow() {
        std::vector<Slot> old = std::move(slots_);
        slots_.assign(old.empty() ? 64 : old.size() * 2, Slot());
        for (const Slot& slot : old) {
            if (!slot.name.isEmpty()) {
                slotOf(slot.name) = slot;
            }
        }
    }

    std::vector<Slot> slots_;
    std::size_t count_ = 0;
};

}  // namespace python_host
