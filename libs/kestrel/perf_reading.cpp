#include "perf_reading.h"

#include <windows.h>
#include <psapi.h>
#include <winternl.h>

#include "latest_process_count.h"
#include "system_process_buffer.h"

namespace kestrel::perf {
namespace {

uint64_t FromFileTime(const FILETIME& time) {
    return (static_cast<uint64_t>(time.dwHighDateTime) << 32) | time.dwLowDateTime;
}

bool ReadProcessorTimes(SystemReading& reading) {
    FILETIME idle{}, kernel{}, user{};
    if (!GetSystemTimes(&idle, &kernel, &user)) return false;
    reading.idleTime = FromFileTime(idle);
    reading.kernelTime = FromFileTime(kernel);
    reading.userTime = FromFileTime(user);
    return true;
}

bool ReadContextSwitches(SystemReading& reading) {
    SYSTEM_PERFORMANCE_INFORMATION info{};
    ULONG length = 0;
    if (NtQuerySystemInformation(SystemPerformanceInformation, &info, sizeof info, &length) != 0) return false;
    reading.contextSwitches = info.ContextSwitches;
    return true;
}

bool ReadMemory(SystemReading& reading) {
    MEMORYSTATUSEX memory{};
    memory.dwLength = sizeof memory;
    const bool haveMemory = GlobalMemoryStatusEx(&memory) != FALSE;
    if (haveMemory) {
        reading.physicalTotalBytes = memory.ullTotalPhys;
        reading.physicalAvailableBytes = memory.ullAvailPhys;
    }
    PERFORMANCE_INFORMATION performance{};
    performance.cb = sizeof performance;
    const bool havePerformance = GetPerformanceInfo(&performance, sizeof performance) != FALSE;
    if (havePerformance) {
        const uint64_t page = performance.PageSize;
        reading.commitTotalBytes = performance.CommitTotal * page;
        reading.commitLimitBytes = performance.CommitLimit * page;
        reading.systemCacheBytes = performance.SystemCache * page;
    } else if (haveMemory) {
        // Without the performance information the page file figures describe the commit charge.
        reading.commitTotalBytes = memory.ullTotalPageFile - memory.ullAvailPageFile;
        reading.commitLimitBytes = memory.ullTotalPageFile;
    }
    return haveMemory || havePerformance;
}

// Counted from the same list the process provider reads, so both agree on what a process is.
bool ReadProcessCount(SystemReading& reading) {
    if (const auto recent = detail::RecentProcessCount(1000)) {
        reading.processCount = *recent;
        return true;
    }
    // One buffer per reading thread, kept grown from one reading to the next.
    thread_local detail::SystemProcessBuffer processes;
    if (!processes.Query()) return false;
    uint32_t count = 0;
    processes.ForEach([&](const nt::SystemProcessEntry&) { ++count; });
    reading.processCount = count;
    return true;
}

}  // namespace

bool TakeSystemReading(SystemReading& reading) {
    reading = {};
    reading.tickMs = GetTickCount64();
    const bool times = ReadProcessorTimes(reading);
    const bool switches = ReadContextSwitches(reading);
    const bool memory = ReadMemory(reading);
    const bool processes = ReadProcessCount(reading);
    return times || switches || memory || processes;
}

}  // namespace kestrel::perf
