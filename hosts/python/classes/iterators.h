// Iterators over nodes and over ids.
#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "host/class_system.h"
#include "hosts/python/counted.h"
#include "hosts/python/references.h"

namespace python_host {

/// Walks nodes that it keeps alive.
class NodeIterator final : private Counted, public zelk::COSIterator {
public:
    static zelk::COSIteratorPtr over(std::vector<zelk::COSInterfacePtr> nodes) {
        return zelk::COSIteratorPtr(new NodeIterator(std::move(nodes)));
    }

    void addReference() const noexcept override { addOwner(); }
    void releaseReference() const noexcept override { releaseOwner(); }

    bool hasMoreElements() override { return next_ < nodes_.size(); }
    zelk::COSInterfacePtr nextElement() override {
        if (!hasMoreElements()) {
            throw zelk::ENoElements();
        }
        return nodes_[next_++];
    }

private:
    explicit NodeIterator(std::vector<zelk::COSInterfacePtr> nodes) : nodes_(std::move(nodes)) {}

    std::vector<zelk::COSInterfacePtr> nodes_;
    std::size_t next_ = 0;
};

/// Walks the ids of classes that it keeps alive.
class IDIterator final : private Counted, public zelk::COSIDIterator {
public:
    /// `classes` holds what the ids name.
    static zelk::COSIDIteratorPtr over(std::vector<zelk::COSInternedID> ids, Ref classes) {
        return zelk::COSIDIteratorPtr(new IDIterator(std::move(ids), std::move(classes)));
    }

    void addReference() const noexcept override { addOwner(); }
    void releaseReference() const noexcept override { releaseOwner(); }

    bool hasMoreElements() override { return next_ < ids_.size(); }
    zelk::COSInternedID nextElement() override {
        if (!hasMoreElements()) {
            throw zelk::ENoElements();
        }
        return ids_[next_++];
    }

private:
    IDIterator(std::vector<zelk::COSInternedID> ids, Ref classes)
        : ids_(std::move(ids)), classes_(std::move(classes)) {}

    std::vector<zelk::COSInternedID> ids_;
    Ref classes_;
    std::size_t next_ = 0;
};

}  // namespace python_host
