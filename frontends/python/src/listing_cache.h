// What classes and modules were found to offer, kept for as long as they have not changed.
//
// The rule. A listing is kept only under a version that the interpreter changes with every change of what the
// listing was made of, and is handed out only while that version stands: so nothing stale is ever answered. What
// has no such version is not kept, and of the names that an object itself gives only those of crowded_object.h. A
// listing holds texts and none of a user's objects; a class or module is known here by its address alone, which its
// version makes unmistakable. The number of listings is bounded, and the one that came first makes room.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <unordered_map>

#include "frontends/python/src/listing.h"

namespace contextdata::python {

/// What of a subject is listed.
enum class Listed : std::uint8_t { classItself, object, module };

class ListingCache {
public:
    static constexpr std::size_t capacity = 256;

    /// Null when nothing is kept for that version.
    ListingPtr find(const void* subject, Listed listed, std::uint64_t version) const;

    /// Keeps a listing; an earlier one of the same subject goes.
    void keep(const void* subject, Listed listed, std::uint64_t version, ListingPtr listing);

    std::size_t size() const noexcept { return entries_.size(); }
    void clear() noexcept;

private:
    struct Key {
        const void* subject;
        Listed listed;

        friend bool operator==(const Key&, const Key&) = default;
    };
    struct HashOfKey {
        std::size_t operator()(const Key& key) const noexcept {
            return std::hash<const void*>{}(key.subject) + static_cast<std::size_t>(key.listed);
        }
    };
    struct Entry {
        std::uint64_t version;
        ListingPtr listing;
    };

    std::unordered_map<Key, Entry, HashOfKey> entries_;
    std::deque<Key> byAge_;  // the keys of entries_, oldest first
};

/// The cache of the process. It is never destroyed, as the interpreter is gone by then.
ListingCache& listingCache();

}  // namespace contextdata::python
