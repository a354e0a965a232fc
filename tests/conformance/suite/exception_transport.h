// What every exception of a host must stand: to be cloned, rethrown from the clone, copied, and caught by its bases.
#pragma once

#include <gtest/gtest.h>

#include <boost/exception/exception.hpp>
#include <memory>

#include "host/exceptions.h"

namespace conformance {

template <class Exception>
void expectToTravel(const Exception& thrown) {
    using foundation::core::except::IException;
    const std::unique_ptr<const boost::exception_detail::clone_base> clone(thrown.clone());
    ASSERT_NE(clone, nullptr);
    EXPECT_NE(dynamic_cast<const Exception*>(clone.get()), nullptr);
    EXPECT_THROW(clone->rethrow(), Exception);
    EXPECT_THROW(clone->rethrow(), IException);
    EXPECT_THROW(clone->rethrow(), boost::exception);
    try {
        thrown.rethrow();
    } catch (const IException& caught) {
        EXPECT_NE(dynamic_cast<const Exception*>(&caught), nullptr);
        EXPECT_EQ(caught.getMessage(), thrown.getMessage());
    }
    Exception copy(thrown);
    copy = thrown;
    EXPECT_EQ(copy.getMessage(), thrown.getMessage());
}

}  // namespace conformance
