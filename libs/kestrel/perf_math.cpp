#include "perf_math.h"

#include <algorithm>
#include <limits>

namespace kestrel::perf {
namespace {
uint64_t Delta(uint64_t earlier, uint64_t later) { return later >= earlier ? later - earlier : 0; }
}  // namespace

double UsagePercent(uint64_t part, uint64_t whole) {
    if (whole == 0) return 0;
    return std::clamp(static_cast<double>(part) * 100.0 / static_cast<double>(whole), 0.0, 100.0);
}

uint32_t BytesToKB(uint64_t bytes) {
    return static_cast<uint32_t>(std::min<uint64_t>(bytes / 1024, std::numeric_limits<uint32_t>::max()));
}

uint32_t RatePerSecond(uint64_t count, uint64_t elapsedMs) {
    if (elapsedMs == 0) return 0;
    const long double rate = static_cast<long double>(count) * 1000.0L / static_cast<long double>(elapsedMs);
    return static_cast<uint32_t>(std::min<long double>(rate, std::numeric_limits<uint32_t>::max()));
}

SystemFigures ComputeFigures(const SystemReading& previous, const SystemReading& current) {
    SystemFigures figures;
    const uint64_t idle = Delta(previous.idleTime, current.idleTime);
    const uint64_t kernel = Delta(previous.kernelTime, current.kernelTime);
    const uint64_t user = Delta(previous.userTime, current.userTime);
    const uint64_t total = kernel + user;
    figures.cpuUsage = UsagePercent(total - std::min(idle, total), total);
    figures.systemCpuUsage = UsagePercent(kernel - std::min(idle, kernel), total);
    // The running count is 32-bit: the unsigned difference is right across its wrap.
    const uint32_t switches = current.contextSwitches - previous.contextSwitches;
    figures.contextSwitchesPerSecond = RatePerSecond(switches, Delta(previous.tickMs, current.tickMs));
    figures.physicalAvailableKB = BytesToKB(current.physicalAvailableBytes);
    figures.physicalTotalKB = BytesToKB(current.physicalTotalBytes);
    figures.commitTotalKB = BytesToKB(current.commitTotalBytes);
    figures.commitLimitKB = BytesToKB(current.commitLimitBytes);
    figures.systemCacheKB = BytesToKB(current.systemCacheBytes);
    figures.processCount = current.processCount;
    return figures;
}

}  // namespace kestrel::perf
