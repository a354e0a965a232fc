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
    Service service;
    std::string argument;

    friend bool operator==(const Call&, const Call&) = default;
};

CONTEXTDATA_MEMORY_HOST_API std::ostream& operator<<(std::ostream& out, const Call& call);

/// Records calls from the birth of its world; one thread at a time.
class CONTEXTDATA_MEMORY_HOST_API CallJournal {
public:
    const std::vector<Call>& calls() const noexcept { return calls_; }
    std::size_t countOf(Service service) const noexcept;

    /// Forgets what was recorded. Building a world calls no service, so it leaves no trace here.
    void clear() noexcept { calls_.clear(); }

    void record(Service service, std::string_view argument) { calls_.push_back({service, std::string(argument)}); }

private:
    std::vector<Call> calls_;
};

}  // namespace memory_host
