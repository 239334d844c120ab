#include "perf/popup_text.h"

#include <gtest/gtest.h>

namespace lmvx::perf {
namespace {

TEST(MemoryPercent, UsedPhysicalFromTotalAndAvailable) {
    EXPECT_EQ(UsedPhysicalPercent(8000000, 2000000), 75u);
    EXPECT_EQ(UsedPhysicalPercent(8000000, 8000000), 0u);
    EXPECT_EQ(UsedPhysicalPercent(8000000, 0), 100u);
    // Integer arithmetic truncates the available share: 1/3 available shows 67 % used.
    EXPECT_EQ(UsedPhysicalPercent(3000, 1000), 67u);
}

TEST(MemoryPercent, CommitShareOfTheLimit) {
    EXPECT_EQ(CommitPercent(4000000, 16000000), 25u);
    EXPECT_EQ(CommitPercent(0, 16000000), 0u);
    EXPECT_EQ(CommitPercent(1000, 3000), 33u);
}

TEST(MemoryPercent, TotalsUnderTenKilobytesShowZeroInsteadOfDividingByZero) {
    EXPECT_EQ(CommitPercent(5, 9), 0u);
    EXPECT_EQ(CommitPercent(5, 0), 0u);
    EXPECT_EQ(UsedPhysicalPercent(9, 3), 0u);
    EXPECT_EQ(UsedPhysicalPercent(0, 0), 0u);
    EXPECT_EQ(CommitPercent(10, 10), 100u);
}

TEST(MemoryPercent, PartLargerThanWholeNeverWraps) {
    EXPECT_EQ(UsedPhysicalPercent(1000, 2000), 0u);
    EXPECT_EQ(CommitPercent(2000, 1000), 100u);
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
