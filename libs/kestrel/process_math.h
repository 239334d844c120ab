// Arithmetic of the provider's counters: pure functions of values, tested directly.
#pragma once
#include <windows.h>
#include <cstdint>

namespace kestrel::detail {

// CPU usage in whole percent from the growth of kernel plus user time (100 ns units) over the measured
// interval (100 ns units) on the given number of processors; 0 when nothing was measured, at most 100.
unsigned CpuUsagePercent(uint64_t cpuTimeBefore, uint64_t cpuTimeAfter, uint64_t interval100ns,
                         unsigned processorCount);

// Growth of a counter that should only rise; a counter that went down (a new instance, a wrapped counter)
// counts as no growth. Saturated at 0xFFFFFFFF.
unsigned CounterDelta(uint64_t before, uint64_t after);

// Bytes per second for a delta measured over intervalMs milliseconds; 0 for a zero interval.
uint64_t RatePerSecond(uint64_t delta, uint64_t intervalMs);

// Signed change of a byte figure, saturated to the 32-bit range.
int SignedDelta(uint64_t before, uint64_t after);

// A 64-bit byte figure in 32 bits, saturated.
unsigned Saturate32(uint64_t value);

// A duration in 100 ns units packed into SYSTEMTIME fields: days in wDay (at most 65535), then hours,
// minutes, seconds and milliseconds; year, month and day of week 0.
SYSTEMTIME PackDuration(uint64_t duration100ns);

// The priority class of a process from its base priority (4 idle, 6 below normal, 8 normal, 10 above
// normal, 13 high, 24 realtime); 0 for any other value.
unsigned PriorityClassFromBasePriority(long basePriority);

}  // namespace kestrel::detail
