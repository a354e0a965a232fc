// The failure that the in-memory host raises of its own, and when a plan asks for a host exception.
#pragma once

#include <string>

#include "host/exceptions.h"

namespace memory_host {

class HostFailure final : public foundation::core::except::IException {
public:
    explicit HostFailure(std::string message);
    HostFailure(const HostFailure& other);
    ~HostFailure() noexcept override;

    const boost::exception_detail::clone_base* clone() const override;
    [[noreturn]] void rethrow() const override;
};

}  // namespace memory_host
