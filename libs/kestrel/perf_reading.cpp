#include "perf_reading.h"

#include <windows.h>
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

unsigned PageSize() {
    static const unsigned size = [] {
        SYSTEM_INFO system{};
        GetSystemInfo(&system);
        return static_cast<unsigned>(system.dwPageSize);
    }();
    return size;
}

// Context switches, commit charge and system cache from one SystemPerformanceInformation query.
// (GetPerformanceInfo gives the same memory figures but also counts processes, threads and handles, which
// costs a full process-list query: under Wine several /proc files per process, each cycle.)
bool ReadPerformanceInformation(SystemReading& reading) {
    SYSTEM_PERFORMANCE_INFORMATION info{};
    ULONG length = 0;
    if (NtQuerySystemInformation(SystemPerformanceInformation, &info, sizeof info, &length) != 0) return false;
    const uint64_t page = PageSize();
    reading.contextSwitches = info.ContextSwitches;
    reading.commitTotalBytes = info.TotalCommittedPages * page;
    reading.commitLimitBytes = info.TotalCommitLimit * page;
    reading.systemCacheBytes = info.MmSystemCachePage * page;
    return true;
}

bool ReadPhysicalMemory(SystemReading& reading) {
    MEMORYSTATUSEX memory{};
    memory.dwLength = sizeof memory;
    if (!GlobalMemoryStatusEx(&memory)) return false;
    reading.physicalTotalBytes = memory.ullTotalPhys;
    reading.physicalAvailableBytes = memory.ullAvailPhys;
    return true;
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
    const bool performance = ReadPerformanceInformation(reading);
    const bool memory = ReadPhysicalMemory(reading);
    const bool processes = ReadProcessCount(reading);
    return times || performance || memory || processes;
}

}  // namespace kestrel::perf
