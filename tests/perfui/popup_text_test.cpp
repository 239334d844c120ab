#include "perf/popup_text.h"

#include <gtest/gtest.h>

namespace lmvx::perf {
namespace {

// Integer arithmetic: 1/3 available shows 67 % used; totals under ten kilobytes show 0 instead of dividing by
// zero; a part larger than the whole never wraps.
TEST(MemoryPercent, UsedPhysicalAndCommitShares) {
    const struct {
        unsigned a, b;
        unsigned usedPhysical, commit;   // UsedPhysicalPercent(total a, available b), CommitPercent(total a, limit b)
    } cases[] = {
        {8000000, 2000000, 75, 100}, {8000000, 8000000, 0, 100}, {8000000, 0, 100, 0}, {3000, 1000, 67, 100},
        {4000000, 16000000, 0, 25},  {0, 16000000, 0, 0},        {1000, 3000, 0, 33},  {5, 9, 0, 0},
        {5, 0, 0, 0},                {9, 3, 0, 0},               {0, 0, 0, 0},         {10, 10, 0, 100},
        {1000, 2000, 0, 50},         {2000, 1000, 50, 100},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(UsedPhysicalPercent(c.a, c.b), c.usedPhysical) << c.a << "/" << c.b;
        EXPECT_EQ(CommitPercent(c.a, c.b), c.commit) << c.a << "/" << c.b;
    }
}

TEST(MemoryPercent, MegabytesRoundDown) {
    EXPECT_EQ(KilobytesToMegabytes(1023), 0u);
    EXPECT_EQ(KilobytesToMegabytes(1024), 1u);
    EXPECT_EQ(KilobytesToMegabytes(2047), 1u);
}

TEST(PopupText, Formats) {
    EXPECT_EQ(CpuUsageText(12.4), L"12 %");
    EXPECT_EQ(CpuUsageText(99.6), L"100 %");
    EXPECT_EQ(CpuUsageText(0.0), L"0 %");
    EXPECT_EQ(ContextSwitchText(1234), L"1234/s");
    EXPECT_EQ(PercentAndMegabytesText(42, 1234), L"(42 %) 1234 MB");
}

}  // namespace
}  // namespace lmvx::perf
