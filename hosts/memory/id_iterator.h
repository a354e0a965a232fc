// Walks over interned ids.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "host/class_system.h"

namespace memory_host {

/// Goes over ids that its world keeps.
class IDIterator final : public zelk::COSIDIterator {
public:
    /// `ids` outlives the iterator and does not change meanwhile.
    static zelk::COSIDIteratorPtr over(const std::vector<zelk::COSInternedID>& ids);

    /// Iterators that somebody still holds.
    static std::size_t alive() noexcept { return alive_; }

    bool hasMoreElements() override;
    zelk::COSInternedID nextElement() override;

    void addReference() const noexcept override { ++references_; }
    void releaseReference() const noexcept override;

private:
    explicit IDIterator(std::span<const zelk::COSInternedID> ids) noexcept;
    ~IDIterator();

    static inline std::size_t alive_ = 0;

    mutable std::size_t references_ = 0;
    std::span<const zelk::COSInternedID> ids_;
    std::size_t next_ = 0;
};

}  // namespace memory_host
