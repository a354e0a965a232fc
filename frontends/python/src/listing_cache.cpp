#include "frontends/python/src/listing_cache.h"

#include <utility>

namespace contextdata::python {

ListingPtr ListingCache::find(const void* subject, Listed listed, std::uint64_t version) const {
    const auto found = entries_.find({subject, listed});
    return found != entries_.end() && found->second.version == version ? found->second.listing : nullptr;
}

void ListingCache::keep(const void* subject, Listed listed, std::uint64_t version, ListingPtr listing) {
    const Key key{subject, listed};
    if (const auto found = entries_.find(key); found != entries_.end()) {
        found->second = {version, std::move(listing)};
        return;
    }
    if (entries_.size() == capacity) {
        entries_.erase(byAge_.front());
        byAge_.pop_front();
    }
    byAge_.push_back(key);
    entries_.emplace(key, Entry{version, std::move(listing)});
}

void ListingCache::clear() noexcept {
    entries_.clear();
    byAge_.clear();
}

ListingCache& listingCache() {
    static auto& cache = *new ListingCache();
    return cache;
}

}  // namespace contextdata::python
