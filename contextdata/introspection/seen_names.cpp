#include "contextdata/introspection/seen_names.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <utility>

namespace contextdata::introspection {

namespace {

bool isAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char unit) { return static_cast<unsigned char>(unit) < 0x80; });
}

/// Spreads an address by the fraction of the golden ratio; the upper bits of the product tell most.
std::size_t firstSlot(const char* interned, std::size_t slotCount) {
    constexpr std::uint64_t goldenRatio = 0x9E3779B97F4A7C15;
    const std::uint64_t product = reinterpret_cast<std::uintptr_t>(interned) * goldenRatio;
    return product >> (64 - std::countr_zero(slotCount));
}

}  // namespace

bool SeenNames::insert(std::string_view interned, const std::u16string& converted) {
    if (isCrowded()) {
        grow();
    }
    const char*& slot = slotFor(slots_, interned.data());
    if (slot != nullptr) {
        return false;
    }
    // ASCII is converted to itself: as long as there is nothing else, other addresses are other names.
    const bool isNew = (!texts_ && isAscii(interned)) || insertText(converted);
    slot = interned.data();
    ++count_;
    return isNew;
}

/// The slot that holds the address, or the free one where it belongs.
const char*& SeenNames::slotFor(std::span<const char*> slots, const char* interned) {
    std::size_t index = firstSlot(interned, slots.size());
    while (slots[index] != nullptr && slots[index] != interned) {
        index = (index + 1) & (slots.size() - 1);
    }
    return slots[index];
}

/// A class that leaves the usual table may be large, and entering the names anew is dear.
void SeenNames::grow() {
    std::vector<const char*> larger((grownTable_.empty() ? 4 : 2) * slots_.size());
    for (const char* interned : slots_) {
        if (interned != nullptr) {
            slotFor(larger, interned) = interned;
        }
    }
    grownTable_ = std::move(larger);
    slots_ = grownTable_;
}

bool SeenNames::insertText(const std::u16string& converted) {
    if (texts_) {
        return texts_->insert(converted).second;
    }
    Texts texts = textsSoFar();
    const bool isNew = texts.insert(converted).second;
    texts_ = std::move(texts);
    return isNew;
}

/// As long as no texts are kept, all names are ASCII.
SeenNames::Texts SeenNames::textsSoFar() const {
    Texts texts;
    for (const char* interned : slots_) {
        if (interned != nullptr) {
            const std::string_view name = interned;
            texts.emplace(name.begin(), name.end());
        }
    }
    return texts;
}

}  // namespace contextdata::introspection
