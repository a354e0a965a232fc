#include "hosts/memory/call_journal.h"

#include <algorithm>
#include <ostream>

namespace memory_host {

std::ostream& operator<<(std::ostream& out, const Call& call) {
    return out << nameOf(call.service) << '(' << call.argument << ')';
}

std::size_t CallJournal::countOf(Service service) const noexcept {
    return static_cast<std::size_t>(
        std::count_if(calls_.begin(), calls_.end(), [service](const Call& call) { return call.service == service; }));
}

}  // namespace memory_host
