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

    /// The same, and then what the plan says of the call. Not inline, so that calls which nobody looks at are short.
    bool hearsAndAnswersNull(Service service, std::string_view argument);

    std::thread::id thread = std::this_thread::get_id();
    CallJournal journal;
    FaultPlan faults;
    std::map<Service, std::function<void()>> observers;
};

/// The watch of the world that stands; null when there is none or when it is unwatched.
inline Watch* activeWatch = nullptr;

/// What a call is journalled with; made only when somebody looks on, for it costs more than most calls.
inline std::string_view argumentOf(std::string_view text) { return text; }
inline std::string_view argumentOf(zelk::COSInternedID id) { return id.view(); }

/// Passes a call through the gate. True when the plan asks for a null answer, which only services that may answer
/// null heed. Throws what the plan says.
template <class Argument = std::string_view>
inline bool entersToNull(Service service, Argument argument = {}) {
    if (activeWatch == nullptr || !activeWatch->looksOn()) [[likely]] {
        return false;
    }
    return activeWatch->hearsAndAnswersNull(service, argumentOf(argument));
}

/// The same for services that never answer null.
template <class Argument = std::string_view>
inline void enter(Service service, Argument argument = {}) {
    entersToNull(service, argument);
}

/// The same for services that never fail: the journal hears of the call, the fault plan does not.
inline void note(Service service, std::string_view argument = {}) noexcept {
    if (activeWatch != nullptr && activeWatch->looksOn()) {
        activeWatch->hear(service, argument);
    }
}

}  // namespace memory_host
