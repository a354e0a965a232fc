// Which calls of the host fail, and how.
#pragma once

#include <cstddef>
#include <iosfwd>
#include <optional>

#include "hosts/memory/export.h"
#include "hosts/memory/service.h"

namespace memory_host {

/// How a call fails. `nullAnswer` applies to services whose contract lets them answer null; others go on.
enum class Fault { interrupt, hostException, standardException, thrownInt, badAlloc, nullAnswer };

/// Shows a fault in a failed test.
CONTEXTDATA_MEMORY_HOST_API std::ostream& operator<<(std::ostream& out, Fault fault);

/// A plan in force until it is cleared; it starts with no fault. Calls are counted from the last `clear` or
/// `failCall`, the first being 1.
class CONTEXTDATA_MEMORY_HOST_API FaultPlan {
public:
    /// Fails one call, the `number`-th from now.
    void failCall(std::size_t number, Fault fault);

    /// Fails every call of a service.
    void failService(Service service, Fault fault);

    /// Fails the `number`-th call of one service from now.
    void failService(Service service, std::size_t number, Fault fault);

    /// Ends the plan and begins to count anew.
    void clear() noexcept;

    /// The calls met since the last `clear` or `failCall`.
    std::size_t callsMet() const noexcept { return callsMet_; }

    /// Counts a call, and throws or answers the fault that the plan holds for it. For the host's services.
    bool answersNull(Service service);

private:
    std::optional<Fault> planned(Service service);

    std::size_t callsMet_ = 0;
    std::size_t failingCall_ = 0;
    Fault callFault_ = Fault::hostException;
    std::optional<Service> failingService_;
    std::size_t failingServiceCall_ = 0;  // 0: every call
    std::size_t serviceCallsMet_ = 0;
    Fault serviceFault_ = Fault::hostException;
};

}  // namespace memory_host
