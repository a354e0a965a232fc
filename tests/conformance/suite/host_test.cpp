#include "host/host.h"

#include <thread>

#include "tests/conformance/suite/suite.h"

namespace {

using HostName = conformance::Conformance;

TEST_F(HostName, IsTheOneThatTheProgramWasBuiltFor) { EXPECT_EQ(host::host_name(), provider().hostName()); }

TEST_F(HostName, IsOneTextForTheWholeProcess) {
    const char* name = host::host_name();
    ASSERT_NE(name, nullptr);
    EXPECT_STRNE(name, "");
    const char* elsewhere = nullptr;
    std::thread([&elsewhere] { elsewhere = host::host_name(); }).join();
    EXPECT_STREQ(elsewhere, name);
}

}  // namespace
