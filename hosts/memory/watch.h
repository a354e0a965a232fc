// The gate through which every service call passes: the journal hears of it and the fault plan may fail it.
#pragma once

#include <functional>
#include <map>
#include <string_view>
#include <thread>

#include "host/interned.h"
#include "hosts/memory/call_journal.h"
#include "hosts/memory/fault_plan.h"

namespace memory_host {

/// What looks on while a world is watched: on the thread that made the world. Names and conversions serve any thread,
/// and the calls of others are neither heard nor failed.
struct Watch {
    bool looksOn() const noexcept { return std::this_thread::get_id() == thread; }

    /// The journal hears of the call, and whoever waits for it.
    void hear(Service service, std::string_view argument);

    std::thread::id thread = std::this_thread::get_id();
    CallJournal journal;
    FaultPlan faults;
    std::map<Service, std::function<void()>> observers;
};

/// The watch of the world that stands; null when there is none or when it is unwatched.
inline Watch* activeWatch = nullptr;

/// What `entersToNull` says while there is a watch. Apart from it and cold, so that a call which nobody looks at is a
/// single test.
/// @{
[[gnu::cold]] bool entersWatched(Service service, std::string_view argument);
[[gnu::cold]] bool entersWatched(Service service, zelk::COSInternedID argument);
/// @}

/// Passes a call through the gate. True when the plan asks for a null answer, which only services that may answer
/// null heed. Throws what the plan says.
/// @{
inline bool entersToNull(Service service, std::string_view argument = {}) {
    return activeWatch != nullptr && entersWatched(service, argument);
}
inline bool entersToNull(Service service, zelk::COSInternedID argument) {
    return activeWatch != nullptr && entersWatched(service, argument);
}
/// @}

/// The same for services that never answer null.
/// @{
inline void enter(Service service, std::string_view argument = {}) { entersToNull(service, argument); }
inline void enter(Service service, zelk::COSInternedID argument) { entersToNull(service, argument); }
/// @}

/// The same for services that never fail: the journal hears of the call, the fault plan does not.
inline void note(Service service, std::string_view argument = {}) noexcept {
    if (activeWatch != nullptr && activeWatch->looksOn()) {
        activeWatch->hear(service, argument);
    }
}

}  // namespace memory_host
