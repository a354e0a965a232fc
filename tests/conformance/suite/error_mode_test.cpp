#include "host/error_mode.h"

#include "tests/conformance/suite/suite.h"

namespace {

using ErrorMode = conformance::Conformance;

TEST_F(ErrorMode, IsWhatWasSetLast) {
    const qxErrorMode before = getErrorMode();
    setErrorMode(qxErrorMode::disabled);
    EXPECT_EQ(getErrorMode(), qxErrorMode::disabled);
    setErrorMode(qxErrorMode::disabled);
    EXPECT_EQ(getErrorMode(), qxErrorMode::disabled);
    setErrorMode(before);
    EXPECT_EQ(getErrorMode(), before);
}

}  // namespace
