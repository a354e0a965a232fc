// The one failure that this host reports.
#pragma once

#include <string>

#include "host/exceptions.h"

namespace template_host {

class Failure final : public foundation::core::except::IException {
public:
    using IException::IException;
    const boost::exception_detail::clone_base* clone() const override { return new Failure(*this); }
    [[noreturn]] void rethrow() const override { throw Failure(*this); }
};

/// For what this host cannot do yet.
[[noreturn]] inline void missing(const std::string& what) { throw Failure(what + " is not there yet"); }

}  // namespace template_host
