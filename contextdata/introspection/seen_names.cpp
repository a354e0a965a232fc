#include "contextdata/introspection/seen_names.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>
#include <utility>

namespace contextdata::introspection {

namespace {

/// Looks at eight bytes at a time, the last of them twice perhaps: every name of every class comes by.
bool isAscii(std::string_view text) {
    constexpr std::uint64_t highBits = 0x8080808080808080;
    constexpr std::size_t blockSize = sizeof highBits;
    std::uint64_t seen = 0;
    const auto look = [&](std::size_t index) {
        std::uint64_t block = 0;
        std::memcpy(&block, text.data() + index, blockSize);
        seen |= block;
    };
    if (text.size() >= blockSize) {
        const std::size_t last = text.size() - blockSize;
        for (std::size_t index = 0; index < last; index += blockSize) {
            look(index);
        }
        look(last);
    } else {
        for (const char unit : text) {
            seen |= static_cast<unsigned char>(unit);
        }
    }
    return (seen & highBits) == 0;
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
