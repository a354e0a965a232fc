#include "hosts/memory/watch.h"

namespace memory_host {

void Watch::hear(Service service, std::string_view argument) {
    journal.record(service, argument);
    if (const auto waiting = observers.find(service); waiting != observers.end()) {
        waiting->second();
    }
}

bool entersWatched(Service service, std::string_view argument) {
    if (!activeWatch->looksOn()) {
        return false;
    }
    activeWatch->hear(service, argument);
    return activeWatch->faults.answersNull(service);
}

bool entersWatched(Service service, zelk::COSInternedID argument) { return entersWatched(service, argument.view()); }

}  // namespace memory_host
