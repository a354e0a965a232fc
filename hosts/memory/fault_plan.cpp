#include "hosts/memory/fault_plan.h"

#include <new>
#include <ostream>
#include <stdexcept>

#include "host/exceptions.h"
#include "hosts/memory/failure.h"

namespace memory_host {

namespace {

/// Throws the fault, or returns for the one that is no exception.
void raise(Fault fault, Service service) {
    switch (fault) {
        case Fault::interrupt:
            throw foundation::core::except::InterruptException();
        case Fault::hostException:
            throw HostFailure("planned failure of " + std::string(nameOf(service)));
        case Fault::standardException:
            throw std::runtime_error("planned failure of " + std::string(nameOf(service)));
        case Fault::thrownInt:
            throw 42;
        case Fault::badAlloc:
            throw std::bad_alloc();
        case Fault::nullAnswer:
            return;
    }
}

}  // namespace

std::ostream& operator<<(std::ostream& out, Fault fault) {
    switch (fault) {
        case Fault::interrupt:
            return out << "interrupt";
        case Fault::hostException:
            return out << "host exception";
        case Fault::standardException:
            return out << "std::runtime_error";
        case Fault::thrownInt:
            return out << "thrown int";
        case Fault::badAlloc:
            return out << "std::bad_alloc";
        case Fault::nullAnswer:
            return out << "null answer";
    }
    return out;
}

void FaultPlan::failCall(std::size_t number, Fault fault) {
    callsMet_ = 0;
    failingCall_ = number;
    callFault_ = fault;
}

void FaultPlan::failService(Service service, Fault fault) { failService(service, 0, fault); }

void FaultPlan::failService(Service service, std::size_t number, Fault fault) {
    failingService_ = service;
    failingServiceCall_ = number;
    serviceCallsMet_ = 0;
    serviceFault_ = fault;
}

void FaultPlan::clear() noexcept { *this = FaultPlan(); }

bool FaultPlan::answersNull(Service service) {
    const std::optional<Fault> fault = planned(service);
    if (fault) {
        raise(*fault, service);
    }
    return fault.has_value();
}

std::optional<Fault> FaultPlan::planned(Service service) {
    ++callsMet_;
    if (callsMet_ == failingCall_) {
        return callFault_;
    }
    if (failingService_ != service) {
        return std::nullopt;
    }
    ++serviceCallsMet_;
    if (failingServiceCall_ == 0 || failingServiceCall_ == serviceCallsMet_) {
        return serviceFault_;
    }
    return std::nullopt;
}

}  // namespace memory_host
