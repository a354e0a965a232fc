#include "hosts/memory/node_iterator.h"

#include <utility>

#include "hosts/memory/watch.h"

namespace memory_host {

zelk::COSIteratorPtr NodeIterator::over(std::vector<Node*>&& nodes) {
    const boost::intrusive_ptr<NodeIterator> made(new NodeIterator);
    made->own_ = std::move(nodes);
    made->nodes_ = made->own_;
    return made;
}

zelk::COSIteratorPtr NodeIterator::over(const std::vector<Node*>& nodes) {
    const boost::intrusive_ptr<NodeIterator> made(new NodeIterator);
    made->nodes_ = nodes;
    return made;
}

NodeIterator::NodeIterator() noexcept { ++alive_; }

NodeIterator::~NodeIterator() { --alive_; }

void NodeIterator::releaseReference() const noexcept {
    if (--references_ == 0) {
        delete this;
    }
}

bool NodeIterator::hasMoreElements() {
    enter(Service::iteratorHasMoreElements);
    return next_ < nodes_.size();
}

zelk::COSInterfacePtr NodeIterator::nextElement() {
    enter(Service::iteratorNextElement);
    if (next_ == nodes_.size()) {
        throw zelk::ENoElements();
    }
    return nodes_[next_++];
}

}  // namespace memory_host
