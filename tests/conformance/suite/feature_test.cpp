#include "host/feature.h"

#include "tests/conformance/suite/suite.h"

namespace {

using Feature = conformance::Conformance;

TEST_F(Feature, StandsWhileNobodySwitchesIt) { EXPECT_EQ(ComponentFeature::IsOn(), ComponentFeature::IsOn()); }

}  // namespace
