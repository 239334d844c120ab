// The arithmetic of the system counters: usage from time deltas, rates, unit conversions. Values in,
// values out, so every rule is tested directly.
#pragma once
#include <cstdint>

namespace kestrel::perf {

// One reading of the system's counters, as the system gives them.
struct SystemReading {
    uint64_t tickMs = 0;               // GetTickCount64 at the reading
    uint64_t idleTime = 0;             // 100 ns units, all processors
    uint64_t kernelTime = 0;           // includes the idle time, as the system counts it
    uint64_t userTime = 0;
    uint32_t contextSwitches = 0;      // running count; wraps at 2^32
    uint64_t physicalTotalBytes = 0;
    uint64_t physicalAvailableBytes = 0;
    uint64_t commitTotalBytes = 0;
    uint64_t commitLimitBytes = 0;
    uint64_t systemCacheBytes = 0;
    uint32_t processCount = 0;
};

// The figures the counters object hands out, in the units of its getters.
struct SystemFigures {
    double cpuUsage = 0;          // percent, 0 to 100
    double systemCpuUsage = 0;    // percent, 0 to 100
    uint32_t contextSwitchesPerSecond = 0;
    uint32_t physicalAvailableKB = 0;
    uint32_t physicalTotalKB = 0;
    uint32_t commitTotalKB = 0;
    uint32_t commitLimitKB = 0;
    uint32_t systemCacheKB = 0;
    uint32_t processCount = 0;
};

// part / whole in percent, clamped to 0..100; 0 when whole is 0.
double UsagePercent(uint64_t part, uint64_t whole);
// Bytes to KB, saturated at the largest 32-bit value.
uint32_t BytesToKB(uint64_t bytes);
// Count per second over elapsedMs, saturated; 0 when no time passed.
uint32_t RatePerSecond(uint64_t count, uint64_t elapsedMs);
// Figures over the time between two readings; the memory figures are those of the later one. Counters
// that went back (a reset) count as no change.
SystemFigures ComputeFigures(const SystemReading& previous, const SystemReading& current);

}  // namespace kestrel::perf
