#include "perf/cpu_level.h"

#include "resource.h"

namespace lmvx::perf {

int CpuLevelFromUsage(unsigned usagePercent) {
    const unsigned level = usagePercent / 10;
    return level > 10 ? 10 : static_cast<int>(level);
}

const std::array<unsigned short, kCpuLevelCount>& CpuLevelIconIds() {
    // Level 6 is resource 172, between 168 and 169: the numbering is not monotonic on purpose.
    static constexpr std::array<unsigned short, kCpuLevelCount> ids = {
        IDI_CPU_LEVEL_0, IDI_CPU_LEVEL_1, IDI_CPU_LEVEL_2, IDI_CPU_LEVEL_3, IDI_CPU_LEVEL_4, IDI_CPU_LEVEL_5,
        IDI_CPU_LEVEL_6, IDI_CPU_LEVEL_7, IDI_CPU_LEVEL_8, IDI_CPU_LEVEL_9, IDI_CPU_LEVEL_10};
    return ids;
}

}  // namespace lmvx::perf
