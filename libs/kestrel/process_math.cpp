#include "process_math.h"

#include <algorithm>
#include <limits>

namespace kestrel::detail {

unsigned CpuUsagePercent(uint64_t cpuTimeBefore, uint64_t cpuTimeAfter, uint64_t interval100ns,
                         unsigned processorCount) {
    if (interval100ns == 0 || processorCount == 0 || cpuTimeAfter <= cpuTimeBefore) return 0;
    const long double used = static_cast<long double>(cpuTimeAfter - cpuTimeBefore);
    const long double available = static_cast<long double>(interval100ns) * processorCount;
    const long double percent = used * 100.0L / available;
    // Rounded to the nearest percent; timer granularity can push a busy process slightly above 100.
    return static_cast<unsigned>(std::min<long double>(percent + 0.5L, 100.0L));
}

unsigned CounterDelta(uint64_t before, uint64_t after) {
    if (after <= before) return 0;
    return Saturate32(after - before);
}

uint64_t RatePerSecond(uint64_t delta, uint64_t intervalMs) {
    if (intervalMs == 0) return 0;
    const long double rate = static_cast<long double>(delta) * 1000.0L / static_cast<long double>(intervalMs);
    const long double limit = static_cast<long double>(std::numeric_limits<uint64_t>::max());
    return rate >= limit ? std::numeric_limits<uint64_t>::max() : static_cast<uint64_t>(rate);
}

int SignedDelta(uint64_t before, uint64_t after) {
    constexpr uint64_t maxPositive = static_cast<uint64_t>(std::numeric_limits<int>::max());
    if (after >= before) {
        const uint64_t growth = after - before;
        return growth > maxPositive ? std::numeric_limits<int>::max() : static_cast<int>(growth);
    }
    const uint64_t shrink = before - after;
    return shrink > maxPositive + 1 ? std::numeric_limits<int>::min() : static_cast<int>(-static_cast<int64_t>(shrink));
}

unsigned Saturate32(uint64_t value) {
    return value > std::numeric_limits<unsigned>::max() ? std::numeric_limits<unsigned>::max()
                                                        : static_cast<unsigned>(value);
}

SYSTEMTIME PackDuration(uint64_t duration100ns) {
    constexpr uint64_t perMillisecond = 10000;
    constexpr uint64_t perSecond = perMillisecond * 1000;
    constexpr uint64_t perMinute = perSecond * 60;
    constexpr uint64_t perHour = perMinute * 60;
    constexpr uint64_t perDay = perHour * 24;
    SYSTEMTIME packed{};
    const uint64_t days = duration100ns / perDay;
    packed.wDay = static_cast<WORD>(std::min<uint64_t>(days, 0xFFFF));
    packed.wHour = static_cast<WORD>(duration100ns % perDay / perHour);
    packed.wMinute = static_cast<WORD>(duration100ns % perHour / perMinute);
    packed.wSecond = static_cast<WORD>(duration100ns % perMinute / perSecond);
    packed.wMilliseconds = static_cast<WORD>(duration100ns % perSecond / perMillisecond);
    return packed;
}

unsigned PriorityClassFromBasePriority(long basePriority) {
    switch (basePriority) {
    case 4: return IDLE_PRIORITY_CLASS;
    case 6: return BELOW_NORMAL_PRIORITY_CLASS;
    case 8: return NORMAL_PRIORITY_CLASS;
    case 10: return ABOVE_NORMAL_PRIORITY_CLASS;
    case 13: return HIGH_PRIORITY_CLASS;
    case 24: return REALTIME_PRIORITY_CLASS;
    default: return 0;
    }
}

}  // namespace kestrel::detail
