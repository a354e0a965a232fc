#include "hosts/memory/id_iterator.h"

#include "hosts/memory/watch.h"

namespace memory_host {

zelk::COSIDIteratorPtr IDIterator::over(const std::vector<zelk::COSInternedID>& ids) {
    return zelk::COSIDIteratorPtr(new IDIterator(ids));
}

IDIterator::IDIterator(std::span<const zelk::COSInternedID> ids) noexcept : ids_(ids) { ++alive_; }

IDIterator::~IDIterator() { --alive_; }

void IDIterator::releaseReference() const noexcept {
    if (--references_ == 0) {
        delete this;
    }
}

bool IDIterator::hasMoreElements() {
    enter(Service::idIteratorHasMoreElements);
    return next_ < ids_.size();
}

zelk::COSInternedID IDIterator::nextElement() {
    enter(Service::idIteratorNextElement);
    if (next_ == ids_.size()) {
        throw zelk::ENoElements();
    }
    return ids_[next_++];
}

}  // namespace memory_host
