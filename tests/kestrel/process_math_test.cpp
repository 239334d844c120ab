// Counter arithmetic of the process provider: CPU percentage, I/O deltas and rates, memory deltas,
// duration packing, priority classes.
#include "process_math.h"

#include <gtest/gtest.h>

#include <limits>

using namespace kestrel::detail;

namespace {

constexpr uint64_t OneSecond = 10'000'000;   // 100 ns units
constexpr unsigned MaxUnsigned = std::numeric_limits<unsigned>::max();
constexpr uint64_t Big = uint64_t{1} << 40;

TEST(CpuUsagePercent, ShareOfAllProcessorsRoundedClampedAndZeroWithoutAMeasurement) {
    struct Case { uint64_t before, after, interval; unsigned processors, percent; };
    const Case cases[] = {
        {0, OneSecond / 2, OneSecond, 1, 50},          {0, OneSecond / 2, OneSecond, 2, 25},
        {OneSecond, 2 * OneSecond, OneSecond, 1, 100}, {0, OneSecond / 1000 * 4, OneSecond, 1, 0},   // 0.4 %
        {0, OneSecond / 1000 * 6, OneSecond, 1, 1},    {0, 3 * OneSecond, OneSecond, 2, 100},        // clamped
        {0, OneSecond, 0, 4, 0},                       {0, OneSecond, OneSecond, 0, 0},   // no interval, no CPUs
        {OneSecond, OneSecond / 2, OneSecond, 1, 0},   // times went down
    };
    for (const Case& c : cases) {
        EXPECT_EQ(CpuUsagePercent(c.before, c.after, c.interval, c.processors), c.percent)
            << c.before << " -> " << c.after << " in " << c.interval << " on " << c.processors;
    }
}

TEST(CounterArithmetic, DeltasAndRatesSaturateInsteadOfWrapping) {
    struct Case { uint64_t a, b; uint64_t delta; uint64_t rate; int signedDelta; };
    // delta: CounterDelta(a, b); rate: RatePerSecond(a, b ms); signedDelta: SignedDelta(a, b)
    const Case cases[] = {
        {1000, 5096, 4096, 196, 4096},    {7, 7, 0, 1000, 0},            {5096, 1000, 0, 5096, -4096},
        {4096, 500, 0, 8192, -3596},      {3000, 3000, 0, 1000, 0},      {1, 3, 2, 333, 2},   // rate truncated
        {4096, 1000, 0, 4096, -3096},     {4096, 0, 0, 0, -4096},   // a zero interval has no rate
        {0, Big, MaxUnsigned, 0, std::numeric_limits<int>::max()},
        {Big, 0, 0, 0, std::numeric_limits<int>::min()},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(::testing::Message() << c.a << ", " << c.b);
        EXPECT_EQ(CounterDelta(c.a, c.b), c.delta);
        EXPECT_EQ(RatePerSecond(c.a, c.b), c.rate);
        EXPECT_EQ(SignedDelta(c.a, c.b), c.signedDelta);
    }
    EXPECT_EQ(RatePerSecond(std::numeric_limits<uint64_t>::max(), 1), std::numeric_limits<uint64_t>::max());
    EXPECT_EQ(Saturate32(12345), 12345u);
    EXPECT_EQ(Saturate32(uint64_t{5} << 32), MaxUnsigned);
}

TEST(PackDuration, SplitsIntoDaysHoursMinutesSecondsAndMillisecondsAndCapsTheDays) {
    const uint64_t duration = ((((2ull * 24 + 3) * 60 + 4) * 60 + 5) * 1000 + 678) * 10'000;
    const SYSTEMTIME packed = PackDuration(duration);
    const WORD expected[] = {0, 0, 0, 2, 3, 4, 5, 678};
    const WORD seen[] = {packed.wYear, packed.wMonth, packed.wDayOfWeek, packed.wDay,
                         packed.wHour, packed.wMinute, packed.wSecond, packed.wMilliseconds};
    for (size_t i = 0; i < std::size(expected); ++i) EXPECT_EQ(seen[i], expected[i]) << "field " << i;
    EXPECT_EQ(PackDuration(std::numeric_limits<uint64_t>::max()).wDay, 0xFFFF);
}

TEST(PriorityClassFromBasePriority, MapsTheSixClassBasePriorities) {
    const std::pair<int, unsigned> cases[] = {
        {4, IDLE_PRIORITY_CLASS},          {6, BELOW_NORMAL_PRIORITY_CLASS}, {8, NORMAL_PRIORITY_CLASS},
        {10, ABOVE_NORMAL_PRIORITY_CLASS}, {13, HIGH_PRIORITY_CLASS},        {24, REALTIME_PRIORITY_CLASS},
        {9, 0},
    };
    for (const auto& [base, priorityClass] : cases) EXPECT_EQ(PriorityClassFromBasePriority(base), priorityClass) << base;
}

}  // namespace
