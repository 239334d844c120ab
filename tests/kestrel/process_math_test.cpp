// Counter arithmetic of the process provider: CPU percentage, I/O deltas and rates, memory deltas,
// duration packing, priority classes.
#include "process_math.h"

#include <gtest/gtest.h>

#include <limits>

using namespace kestrel::detail;

namespace {
constexpr uint64_t OneSecond = 10'000'000;   // 100 ns units
}

TEST(CpuUsagePercent, IsTheShareOfAllProcessorsOverTheInterval) {
    EXPECT_EQ(CpuUsagePercent(0, OneSecond / 2, OneSecond, 1), 50u);
    EXPECT_EQ(CpuUsagePercent(0, OneSecond / 2, OneSecond, 2), 25u);
    EXPECT_EQ(CpuUsagePercent(OneSecond, 2 * OneSecond, OneSecond, 1), 100u);
}

TEST(CpuUsagePercent, RoundsToTheNearestPercent) {
    EXPECT_EQ(CpuUsagePercent(0, OneSecond / 1000 * 4, OneSecond, 1), 0u);    // 0.4 %
    EXPECT_EQ(CpuUsagePercent(0, OneSecond / 1000 * 6, OneSecond, 1), 1u);    // 0.6 %
}

TEST(CpuUsagePercent, IsClampedToOneHundred) {
    EXPECT_EQ(CpuUsagePercent(0, 3 * OneSecond, OneSecond, 2), 100u);
}

TEST(CpuUsagePercent, IsZeroWithoutAMeasurement) {
    EXPECT_EQ(CpuUsagePercent(0, OneSecond, 0, 4), 0u);           // no interval yet
    EXPECT_EQ(CpuUsagePercent(0, OneSecond, OneSecond, 0), 0u);   // no processors known
    EXPECT_EQ(CpuUsagePercent(OneSecond, OneSecond / 2, OneSecond, 1), 0u);   // times went down
}

TEST(CounterDelta, IsTheGrowthSinceThePreviousUpdate) {
    EXPECT_EQ(CounterDelta(1000, 5096), 4096u);
    EXPECT_EQ(CounterDelta(7, 7), 0u);
}

TEST(CounterDelta, CountsADecreasingCounterAsNoGrowth) {
    EXPECT_EQ(CounterDelta(5096, 1000), 0u);
}

TEST(CounterDelta, SaturatesAtThirtyTwoBits) {
    EXPECT_EQ(CounterDelta(0, uint64_t{1} << 40), std::numeric_limits<unsigned>::max());
}

TEST(RatePerSecond, ScalesTheDeltaToOneSecond) {
    EXPECT_EQ(RatePerSecond(4096, 1000), 4096u);
    EXPECT_EQ(RatePerSecond(4096, 500), 8192u);
    EXPECT_EQ(RatePerSecond(3000, 3000), 1000u);
    EXPECT_EQ(RatePerSecond(1, 3), 333u);   // truncated
}

TEST(RatePerSecond, IsZeroForAZeroInterval) {
    EXPECT_EQ(RatePerSecond(4096, 0), 0u);
}

TEST(RatePerSecond, SaturatesInsteadOfOverflowing) {
    EXPECT_EQ(RatePerSecond(std::numeric_limits<uint64_t>::max(), 1), std::numeric_limits<uint64_t>::max());
}

TEST(SignedDelta, GivesGrowthAndShrinkWithTheirSign) {
    EXPECT_EQ(SignedDelta(1000, 1500), 500);
    EXPECT_EQ(SignedDelta(1500, 1000), -500);
    EXPECT_EQ(SignedDelta(1500, 1500), 0);
}

TEST(SignedDelta, SaturatesToTheThirtyTwoBitRange) {
    EXPECT_EQ(SignedDelta(0, uint64_t{1} << 40), std::numeric_limits<int>::max());
    EXPECT_EQ(SignedDelta(uint64_t{1} << 40, 0), std::numeric_limits<int>::min());
}

TEST(Saturate32, KeepsSmallValuesAndCapsLargeOnes) {
    EXPECT_EQ(Saturate32(12345), 12345u);
    EXPECT_EQ(Saturate32(uint64_t{5} << 32), std::numeric_limits<unsigned>::max());
}

TEST(PackDuration, SplitsIntoDaysHoursMinutesSecondsAndMilliseconds) {
    const uint64_t duration = ((((2ull * 24 + 3) * 60 + 4) * 60 + 5) * 1000 + 678) * 10'000;
    const SYSTEMTIME packed = PackDuration(duration);
    EXPECT_EQ(packed.wYear, 0);
    EXPECT_EQ(packed.wMonth, 0);
    EXPECT_EQ(packed.wDayOfWeek, 0);
    EXPECT_EQ(packed.wDay, 2);
    EXPECT_EQ(packed.wHour, 3);
    EXPECT_EQ(packed.wMinute, 4);
    EXPECT_EQ(packed.wSecond, 5);
    EXPECT_EQ(packed.wMilliseconds, 678);
}

TEST(PackDuration, CapsTheDayCount) {
    EXPECT_EQ(PackDuration(std::numeric_limits<uint64_t>::max()).wDay, 0xFFFF);
}

TEST(PriorityClassFromBasePriority, MapsTheSixClassBasePriorities) {
    EXPECT_EQ(PriorityClassFromBasePriority(4), static_cast<unsigned>(IDLE_PRIORITY_CLASS));
    EXPECT_EQ(PriorityClassFromBasePriority(6), static_cast<unsigned>(BELOW_NORMAL_PRIORITY_CLASS));
    EXPECT_EQ(PriorityClassFromBasePriority(8), static_cast<unsigned>(NORMAL_PRIORITY_CLASS));
    EXPECT_EQ(PriorityClassFromBasePriority(10), static_cast<unsigned>(ABOVE_NORMAL_PRIORITY_CLASS));
    EXPECT_EQ(PriorityClassFromBasePriority(13), static_cast<unsigned>(HIGH_PRIORITY_CLASS));
    EXPECT_EQ(PriorityClassFromBasePriority(24), static_cast<unsigned>(REALTIME_PRIORITY_CLASS));
    EXPECT_EQ(PriorityClassFromBasePriority(9), 0u);
}
