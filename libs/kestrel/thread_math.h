// Arithmetic of the thread list: pure functions of values, tested directly.
#pragma once
#include <cstdint>

namespace kestrel::detail {

// Percent of the machine (all processors) that a thread used: its growth of kernel plus user time over
// the interval, both in 100 ns units. 0 when nothing was measured; at most 100.
double ThreadCpuPercent(uint64_t cpuTimeBefore, uint64_t cpuTimeAfter, uint64_t interval100ns,
                        unsigned processorCount);

// The thread's priority level relative to its process (THREAD_PRIORITY_IDLE -15 ... TIME_CRITICAL 15) from
// the base priorities of the system's process query. Windows reports both as absolute levels (process 8,
// thread 6 for "below normal"; a thread saturated at 1 or 15, or 16 and 31 in the realtime class, is idle or
// time critical). Wine reports the process's priority class index (1 to 6) and the thread's relative level.
int ThreadPriorityLevel(long threadBasePriority, long processBasePriority);

}  // namespace kestrel::detail
