// Runs the tests of a program after making sure that the host behind it is the one it was built for.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <string_view>

#include "host/host.h"

int main(int argc, char** argv) {
    testing::InitGoogleMock(&argc, argv);
    if (std::string_view(host::host_name()) != CONTEXTDATA_TEST_HOST) {
        std::fprintf(stderr, "built for the host %s but served by %s\n", CONTEXTDATA_TEST_HOST, host::host_name());
        return 1;
    }
    return RUN_ALL_TESTS();
}
