// The names that a walk has met.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace contextdata::introspection {

/// A growing set of names, made for one walk.
///
/// A walk adds every name of a class to it, so this is where a listing could spend its time. Interned texts are the
/// same at the same address, so addresses are what it remembers: the cost of a name does not grow with its length, nor
/// with the class, and a class of usual size takes nothing from the heap.
class SeenNames {
public:
    SeenNames() = default;
    SeenNames(const SeenNames&) = delete;
    SeenNames& operator=(const SeenNames&) = delete;

    /// Adds a name, given as the interned text and as what that is converted to; false when the latter was there
    /// already. Names beyond ASCII may be converted to the same text, and then are the same name. May throw
    /// `std::bad_alloc`, with the set as it was.
    bool insert(std::string_view interned, const std::u16string& converted);

private:
    using Texts = std::unordered_set<std::u16string>;

    static constexpr std::size_t usualSlots = 64;

    static const char*& slotFor(std::span<const char*> slots, const char* interned);
    bool isCrowded() const { return 4 * (count_ + 1) > 3 * slots_.size(); }
    void grow();
    bool insertText(const std::u16string& converted);
    Texts textsSoFar() const;

    std::array<const char*, usualSlots> usualTable_{};
    std::vector<const char*> grownTable_;
    std::span<const char*> slots_{usualTable_};  // a power of two of them; null: free
    std::size_t count_ = 0;
    std::optional<Texts> texts_;  // what all names are converted to, from the first one beyond ASCII on
};

}  // namespace contextdata::introspection
