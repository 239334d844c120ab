#include <gtest/gtest.h>

#include <limits>

#include "perf_math.h"

namespace kestrel::perf {
namespace {

TEST(PerfMath, SharesClampedRatesOverTheMeasuredTimeAndKilobytesSaturated) {
    constexpr uint32_t kMax32 = std::numeric_limits<uint32_t>::max();
    EXPECT_DOUBLE_EQ(UsagePercent(9, 4), 100.0);
    EXPECT_EQ(BytesToKB(1023), 0u);
    EXPECT_EQ(BytesToKB(std::numeric_limits<uint64_t>::max()), kMax32);
    EXPECT_EQ(RatePerSecond(500, 0), 0u);
    EXPECT_EQ(RatePerSecond(kMax32, 1), kMax32);
}

// The kernel time includes the idle time; no time passed is no usage, and counters going back count as no
// change; context switches per second across the counter's wrap.
TEST(ComputeFigures, UsageAndSwitchesOfTheTimeBetweenTwoReadings) {
    const struct {
        SystemReading before, after;
        double cpu, system;
        uint32_t switches;
    } cases[] = {
        // 1000 units of processor time: 600 idle, 100 more in the kernel, 300 in user mode.
        {{}, {.tickMs = 1000, .idleTime = 600, .kernelTime = 700, .userTime = 300}, 40.0, 10.0, 0},
        {{5, 10, 20, 30, 40}, {5, 10, 20, 30, 40}, 0.0, 0.0, 0},
        {{0, 500, 900, 900}, {1000, 100, 100, 100}, 0.0, 0.0, 0},
        {{.tickMs = 1000, .contextSwitches = 0xFFFFFF00u}, {.tickMs = 1500, .contextSwitches = 0x100u}, 0, 0, 0x400},
    };
    for (const auto& c : cases) {
        const SystemFigures figures = ComputeFigures(c.before, c.after);
        EXPECT_DOUBLE_EQ(figures.cpuUsage, c.cpu) << c.after.kernelTime;
        EXPECT_DOUBLE_EQ(figures.systemCpuUsage, c.system) << c.after.kernelTime;
        EXPECT_EQ(figures.contextSwitchesPerSecond, c.switches) << c.after.contextSwitches;
    }
}

TEST(ComputeFigures, MemoryFromTheLaterReadingInKB) {
    const SystemReading later{.physicalTotalBytes = 8ull << 30, .physicalAvailableBytes = 3ull << 30,
                              .commitTotalBytes = 5ull << 30, .commitLimitBytes = 16ull << 30,
                              .systemCacheBytes = 1ull << 30, .processCount = 42};
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
