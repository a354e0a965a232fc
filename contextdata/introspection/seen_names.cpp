#include "contextdata/introspection/seen_names.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace contextdata::introspection {

namespace {

constexpr std::size_t unitsInBlock = sizeof(std::uint64_t) / sizeof(char16_t);

/// Over blocks of four code units, the last one filled up with zeros. Each is spread by the fraction of the golden
/// ratio, which carries what differs upwards only, and so is brought down again.
std::uint32_t hashOf(std::u16string_view name) {
    constexpr std::uint64_t goldenRatio = 0x9E3779B97F4A7C15;
    std::uint64_t hash = name.size();
    const auto add = [&hash](std::uint64_t block) {
        hash = (hash ^ block) * goldenRatio;
        hash ^= hash >> 32;
    };
    std::uint64_t block = 0;
    for (; name.size() >= unitsInBlock; name.remove_prefix(unitsInBlock)) {
        std::memcpy(&block, name.data(), sizeof block);
        add(block);
    }
    block = 0;
    std::memcpy(&block, name.data(), name.size() * sizeof(char16_t));
    add(block);
    return static_cast<std::uint32_t>(hash);
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

/// A class that leaves the usual table may be large, and entering the names anew is dear.
void SeenNames::grow() {
    std::vector<Slot> larger((grownTable_.empty() ? 4 : 2) * slots_.size());
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
