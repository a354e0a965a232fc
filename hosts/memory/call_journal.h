// What the library asked of the host, in order.
#pragma once

#include <cstddef>
#include <iosfwd>
#include <string>
#include <vector>

#include "hosts/memory/export.h"
#include "hosts/memory/service.h"

namespace memory_host {

/// One call of a service; `argument` is the name that it was asked with, empty where there is none.
struct Call {
    Service service;       ///< which one was called
    std::string argument;  ///< the name

    friend bool operator==(const Call&, const Call&) = default;
};

/// Shows a call in a failed test.
CONTEXTDATA_MEMORY_HOST_API std::ostream& operator<<(std::ostream& out, const Call& call);

/// Records calls from the birth of its world; one thread at a time.
class CONTEXTDATA_MEMORY_HOST_API CallJournal {
public:
    /// In the order in which they came; borrowed, and growing with the next call.
    const std::vector<Call>& calls() const noexcept { return calls_; }
    /// How many calls of one service were recorded.
    std::size_t countOf(Service service) const noexcept;

    /// Forgets what was recorded. Building a world calls no service, so it leaves no trace here.
    void clear() noexcept { calls_.clear(); }

    /// For the host's services, which record themselves.
    void record(Service service, std::string_view argument) { calls_.push_back({service, std::string(argument)}); }

private:
    std::vector<Call> calls_;
};

}  // namespace memory_host
