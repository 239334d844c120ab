#include "thread_math.h"

#include <algorithm>

namespace kestrel::detail {

double ThreadCpuPercent(uint64_t cpuTimeBefore, uint64_t cpuTimeAfter, uint64_t interval100ns,
                        unsigned processorCount) {
    if (interval100ns == 0 || processorCount == 0 || cpuTimeAfter <= cpuTimeBefore) return 0;
    const double used = static_cast<double>(cpuTimeAfter - cpuTimeBefore);
    const double available = static_cast<double>(interval100ns) * processorCount;
    return std::min(used * 100.0 / available, 100.0);
}

int ThreadPriorityLevel(long threadBasePriority, long processBasePriority) {
    constexpr long timeCritical = 15;
    constexpr long idle = -15;
    // A process base priority below 4 is no real level: the thread's value is already relative.
    if (processBasePriority < 4) return static_cast<int>(std::clamp(threadBasePriority, idle, timeCritical));
    const bool realtime = processBasePriority >= 16;
    if (threadBasePriority >= (realtime ? 31 : 15)) return timeCritical;
    if (threadBasePriority <= (realtime ? 16 : 1)) return idle;
    return static_cast<int>(std::clamp(threadBasePriority - processBasePriority, -2L, 2L));
}

}  // namespace kestrel::detail
