// The names that a walk has met.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory_resource>
#include <span>
#include <string_view>
#include <vector>

namespace contextdata::introspection {

/// A growing set of UTF-16 names, made for one walk.
///
/// A walk adds every name of a class to it, so this is where a listing spends its time. Hence a hash table of its
/// own: the cost of a name does not grow with the class, a class of usual size takes nothing from the heap, and
/// texts lie in an arena that goes in one piece.
class SeenNames {
public:
    SeenNames() = default;
    SeenNames(const SeenNames&) = delete;
    SeenNames& operator=(const SeenNames&) = delete;

    /// Adds a name, of which it keeps a copy; false when it was there already. May throw `std::bad_alloc`, with the
    /// set as it was.
    bool insert(std::u16string_view name);

private:
    /// An entry of the table, which is probed from the place that the hash gives to the next free slot.
    struct Slot {
        const char16_t* text = nullptr;  // null: free
        std::uint32_t length = 0;
        std::uint32_t hash = 0;
    };

    static constexpr std::size_t usualSlots = 64;
    static constexpr std::size_t usualTextBytes = 2048;

    static bool holds(const Slot& slot, std::u16string_view name, std::uint32_t hash);
    static Slot& freeSlot(std::span<Slot> slots, std::uint32_t hash);
    Slot& slotFor(std::u16string_view name, std::uint32_t hash);
    bool isCrowded() const { return 2 * (count_ + 1) > slots_.size(); }
    void grow();
    const char16_t* keep(std::u16string_view name);

    std::array<std::byte, usualTextBytes> usualText_;
    std::pmr::monotonic_buffer_resource texts_{usualText_.data(), usualText_.size()};
    std::array<Slot, usualSlots> usualTable_{};
    std::vector<Slot> grownTable_;
    std::span<Slot> slots_{usualTable_};  // a power of two of them
    std::size_t count_ = 0;
};

}  // namespace contextdata::introspection
