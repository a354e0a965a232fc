#include "hosts/memory/watch.h"

namespace memory_host {

void Watch::hear(Service service, std::string_view argument) {
    journal.record(service, argument);
    if (const auto waiting = observers.find(service); waiting != observers.end()) {
        waiting->second();
    }
}

bool Watch::hearsAndAnswersNull(Service service, std::string_view argument) {
    hear(service, argument);
    return faults.answersNull(service);
}

}  // namespace memory_host
