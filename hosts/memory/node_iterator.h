// Walks over nodes that are handed out one by one.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "hosts/memory/members.h"

namespace memory_host {

/// Goes over a list of nodes, its own or one that its world keeps.
class NodeIterator final : public zelk::COSIterator {
public:
    static zelk::COSIteratorPtr over(std::vector<Node*>&& nodes);
    /// `nodes` outlives the iterator and does not change meanwhile.
    static zelk::COSIteratorPtr over(const std::vector<Node*>& nodes);

    /// Iterators that somebody still holds.
    static std::size_t alive() noexcept { return alive_; }

    bool hasMoreElements() override;
    zelk::COSInterfacePtr nextElement() override;

    void addReference() const noexcept override { ++references_; }
    void releaseReference() const noexcept override;

private:
    NodeIterator() noexcept;
    ~NodeIterator();

    static inline std::size_t alive_ = 0;

    mutable std::size_t references_ = 0;
    std::vector<Node*> own_;
    std::span<Node* const> nodes_;
    std::size_t next_ = 0;
};

}  // namespace memory_host
