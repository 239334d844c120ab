#include <gtest/gtest.h>

#include <limits>

#include "perf_math.h"

namespace kestrel::perf {
namespace {

TEST(UsagePercent, ShareClampedAndSafeWithoutTime) {
    EXPECT_DOUBLE_EQ(UsagePercent(1, 4), 25.0);
    EXPECT_DOUBLE_EQ(UsagePercent(0, 0), 0.0);
    EXPECT_DOUBLE_EQ(UsagePercent(9, 4), 100.0);
}

TEST(BytesToKB, SaturatesAt32Bits) {
    EXPECT_EQ(BytesToKB(4096), 4u);
    EXPECT_EQ(BytesToKB(1023), 0u);
    EXPECT_EQ(BytesToKB(std::numeric_limits<uint64_t>::max()), std::numeric_limits<uint32_t>::max());
}

TEST(RatePerSecond, OverTheMeasuredTime) {
    EXPECT_EQ(RatePerSecond(500, 500), 1000u);
    EXPECT_EQ(RatePerSecond(500, 0), 0u);
    EXPECT_EQ(RatePerSecond(std::numeric_limits<uint32_t>::max(), 1), std::numeric_limits<uint32_t>::max());
}

SystemReading Reading(uint64_t tick, uint64_t idle, uint64_t kernel, uint64_t user, uint32_t switches) {
    SystemReading reading;
    reading.tickMs = tick;
    reading.idleTime = idle;
    reading.kernelTime = kernel;
    reading.userTime = user;
    reading.contextSwitches = switches;
    return reading;
}

// The kernel time includes the idle time; no time passed is no usage, and counters going back count as no change.
TEST(ComputeFigures, UsageOfTheTimeBetweenTwoReadings) {
    const struct {
        SystemReading before, after;
        double cpu, system;
    } cases[] = {
        // 1000 units of processor time: 600 idle, 100 more in the kernel, 300 in user mode.
        {Reading(0, 0, 0, 0, 0), Reading(1000, 600, 700, 300, 0), 40.0, 10.0},
        {Reading(5, 10, 20, 30, 40), Reading(5, 10, 20, 30, 40), 0.0, 0.0},
        {Reading(0, 500, 900, 900, 0), Reading(1000, 100, 100, 100, 0), 0.0, 0.0},
    };
    for (const auto& c : cases) {
        const SystemFigures figures = ComputeFigures(c.before, c.after);
        EXPECT_DOUBLE_EQ(figures.cpuUsage, c.cpu) << c.after.kernelTime;
        EXPECT_DOUBLE_EQ(figures.systemCpuUsage, c.system) << c.after.kernelTime;
        EXPECT_EQ(figures.contextSwitchesPerSecond, 0u);
    }
}

TEST(ComputeFigures, ContextSwitchesPerSecondAcrossTheCounterWrap) {
    const SystemFigures figures =
        ComputeFigures(Reading(1000, 0, 0, 0, 0xFFFFFF00u), Reading(1500, 0, 0, 0, 0x00000100u));
    EXPECT_EQ(figures.contextSwitchesPerSecond, 0x200u * 2);
}

TEST(ComputeFigures, MemoryFromTheLaterReadingInKB) {
    SystemReading later;
    later.physicalTotalBytes = 8ull << 30;
    later.physicalAvailableBytes = 3ull << 30;
    later.commitTotalBytes = 5ull << 30;
    later.commitLimitBytes = 16ull << 30;
    later.systemCacheBytes = 1ull << 30;
    later.processCount = 42;
    const SystemFigures figures = ComputeFigures(SystemReading{}, later);
    EXPECT_EQ(figures.physicalTotalKB, 8u << 20);
    EXPECT_EQ(figures.physicalAvailableKB, 3u << 20);
    EXPECT_EQ(figures.commitTotalKB, 5u << 20);
    EXPECT_EQ(figures.commitLimitKB, 16u << 20);
    EXPECT_EQ(figures.systemCacheKB, 1u << 20);
    EXPECT_EQ(figures.processCount, 42u);
}

}  // namespace
}  // namespace kestrel::perf
