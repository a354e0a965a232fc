// The exceptions that a host raises, and the bases of those that travel through its exception transport.
//
// Every class here has an out-of-line destructor that the host defines: the host's library thereby owns the
// type information, and the library catches exactly the types that the host throws.
#pragma once

#include <boost/exception/exception.hpp>

#include <string>

#include "host/visibility.h"

namespace foundation::core::except {

/// Root of all failures that a host reports.
///
/// Copies are cheap enough to be cloned and rethrown on another stack (`clone`, `rethrow` of the Boost base).
/// Anything else that leaves a host service (`std::bad_alloc`, a foreign exception) is treated by the library
/// as a failure too.
class CONTEXTDATA_HOST_API IException : public boost::exception, public boost::exception_detail::clone_base {
public:
    IException();
    /// Carries a text for people; the library never reads it.
    explicit IException(std::string message);
    IException(const IException& other);
    IException& operator=(const IException& other);
    ~IException() noexcept override;

    /// The text given at construction; empty by default.
    const std::string& getMessage() const noexcept;

private:
    std::string message_;
};

/// Base of exceptions that libraries of the host process raise for their own callers.
class CONTEXTDATA_HOST_API IInternalException : public IException {
public:
    IInternalException();
    IInternalException(const IInternalException& other);
    IInternalException& operator=(const IInternalException& other);
    ~IInternalException() noexcept override;
};

/// The user's interrupt (Ctrl-C).
///
/// A host raises it from any service when the person at the prompt asked to stop, and for no other reason.
/// The library lets it pass wherever it turns other failures into a negative answer, except in the few
/// functions that say that they catch everything.
class CONTEXTDATA_HOST_API InterruptException : public IException {
public:
    InterruptException();
    InterruptException(const InterruptException& other);
    InterruptException& operator=(const InterruptException& other);
    ~InterruptException() noexcept override;

    const boost::exception_detail::clone_base* clone() const override;
    [[noreturn]] void rethrow() const override;
};

}  // namespace foundation::core::except
