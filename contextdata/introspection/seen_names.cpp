#include "contextdata/introspection/seen_names.h"

#include <algorithm>
#include <utility>

namespace contextdata::introspection {

namespace {

/// FNV-1a over code units, folded to the width that a slot keeps.
std::uint32_t hashOf(std::u16string_view name) {
    constexpr std::uint64_t offsetBasis = 0xCBF29CE484222325;
    constexpr std::uint64_t prime = 0x100000001B3;
    std::uint64_t hash = offsetBasis;
    for (const char16_t unit : name) {
        hash = (hash ^ unit) * prime;
    }
    return static_cast<std::uint32_t>(hash ^ (hash >> 32));
}

}  // namespace

bool SeenNames::insert(std::u16string_view name) {
    if (isCrowded()) {
        grow();
    }
    const std::uint32_t hash = hashOf(name);
    Slot& slot = slotFor(name, hash);
    if (slot.text != nullptr) {
        return false;
    }
    slot = {keep(name), static_cast<std::uint32_t>(name.size()), hash};
    ++count_;
    return true;
}

bool SeenNames::holds(const Slot& slot, std::u16string_view name, std::uint32_t hash) {
    return slot.hash == hash && std::u16string_view(slot.text, slot.length) == name;
}

SeenNames::Slot& SeenNames::freeSlot(std::span<Slot> slots, std::uint32_t hash) {
    std::size_t index = hash & (slots.size() - 1);
    while (slots[index].text != nullptr) {
        index = (index + 1) & (slots.size() - 1);
    }
    return slots[index];
}

/// The slot that holds the name, or the free one where it belongs.
SeenNames::Slot& SeenNames::slotFor(std::u16string_view name, std::uint32_t hash) {
    std::size_t index = hash & (slots_.size() - 1);
    while (slots_[index].text != nullptr && !holds(slots_[index], name, hash)) {
        index = (index + 1) & (slots_.size() - 1);
    }
    return slots_[index];
}

void SeenNames::grow() {
    std::vector<Slot> larger(2 * slots_.size());
    for (const Slot& slot : slots_) {
        if (slot.text != nullptr) {
            freeSlot(larger, slot.hash) = slot;
        }
    }
    grownTable_ = std::move(larger);
    slots_ = grownTable_;
}

const char16_t* SeenNames::keep(std::u16string_view name) {
    auto* text = static_cast<char16_t*>(texts_.allocate(name.size() * sizeof(char16_t), alignof(char16_t)));
    std::copy(name.begin(), name.end(), text);
    return text;
}

}  // namespace contextdata::introspection
