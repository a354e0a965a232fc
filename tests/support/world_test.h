// A test in a world of its own.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "hosts/memory/world.h"

/// Gives each test a fresh world, and fails the test when anything outlives it.
class WorldTest : public testing::Test {
protected:
    using Names = std::vector<std::u16string>;

    WorldTest() {
        memory_host::setLeakReporter([](const std::string& report) { ADD_FAILURE() << report; });
    }

    memory_host::World world;
};

/// Every way in which a host call can fail that is not the user's interrupt.
inline const std::vector<memory_host::Fault> failuresButInterrupt = {
    memory_host::Fault::hostException,
    memory_host::Fault::standardException,
    memory_host::Fault::thrownInt,
    memory_host::Fault::badAlloc,
};
