#include "host/exceptions.h"

#include <exception>

#include "host/class_system.h"
#include "tests/conformance/suite/exception_transport.h"
#include "tests/conformance/suite/suite.h"

namespace {

using foundation::core::except::IException;
using foundation::core::except::IInternalException;
using foundation::core::except::InterruptException;
using Exceptions = conformance::Conformance;

/// As a library of the host's process derives its own from the two bases.
template <class Base>
class Derived final : public Base {
public:
    using Base::Base;
    const boost::exception_detail::clone_base* clone() const override { return new Derived(*this); }
    [[noreturn]] void rethrow() const override { throw Derived(*this); }
};

TEST_F(Exceptions, CarryTheirMessageThroughCopies) {
    const Derived<IException> plain;
    EXPECT_EQ(plain.getMessage(), "");
    const Derived<IException> telling("what went wrong");
    EXPECT_EQ(telling.getMessage(), "what went wrong");
    Derived<IException> copy(telling);
    EXPECT_EQ(copy.getMessage(), "what went wrong");
    copy = plain;
    EXPECT_EQ(copy.getMessage(), "");
}

TEST_F(Exceptions, OfOtherLibrariesTravelThroughTheHostsBases) {
    conformance::expectToTravel(Derived<IException>("message"));
    conformance::expectToTravel(Derived<IInternalException>());
    EXPECT_THROW(throw Derived<IInternalException>(), IInternalException);
}

TEST_F(Exceptions, TheInterruptTravels) { conformance::expectToTravel(InterruptException()); }

TEST_F(Exceptions, AFailureIsNotTakenForTheInterrupt) {
    const Derived<IException> failure("message");
    const IException& seen = failure;
    EXPECT_EQ(dynamic_cast<const InterruptException*>(&seen), nullptr);
    EXPECT_EQ(dynamic_cast<const IInternalException*>(&seen), nullptr);
}

TEST_F(Exceptions, TheEndOfAWalkTravels) { conformance::expectToTravel(zelk::ENoElements()); }

}  // namespace
