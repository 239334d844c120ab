#include <gtest/gtest.h>

#include "perf/sampler.h"

namespace lmvx::perf {
namespace {

TEST(SamplerFigures, UsageTruncatesTowardZeroAndUsedMemoryNeverBelowZero) {
    EXPECT_EQ(UsagePoint(99.9), 99u);
    EXPECT_EQ(UsagePoint(0.99), 0u);
    EXPECT_EQ(UsagePoint(100.0), 100u);
    EXPECT_EQ(UsagePoint(-3.0), 0u);
    EXPECT_EQ(UsedPhysicalKB(8000, 3000), 5000u);
    EXPECT_EQ(UsedPhysicalKB(3000, 8000), 0u);
}

}  // namespace
}  // namespace lmvx::perf
