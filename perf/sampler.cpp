#include "perf/sampler.h"

#include "app/lmvx.h"

namespace lmvx::perf {

kestrel::_SYSPERFINFO g_sysPerfInfo;
wren::PERFGRAPH g_cpuGraph;
wren::PERFGRAPH g_memoryGraph;
kestrel::PM_PERFMONSOURCE* g_perfMonSource = nullptr;
HBRUSH g_popupBrushLight = nullptr;
HBRUSH g_popupBrushDark = nullptr;

namespace {

void RegisterSeries(wren::PERFGRAPH& graph, unsigned series, const wchar_t* english, const wchar_t* german,
                    const wchar_t* unit, unsigned divisor, COLORREF colour, unsigned scaleMax) {
    graph.SetRegisterDisplayInfo(wren::HardcodeLangString(english, german), unit, divisor, colour, series);
    if (scaleMax != 0) graph.SetScaleMax(scaleMax, series);
}

void CreatePopupBrushes() {
    g_popupBrushLight = CreateSolidBrush(RGB(255, 255, 255));
    // Intended: the white brush above is overwritten unused and never freed; it is harmless.
    g_popupBrushLight = CreateSolidBrush(kPopupBackgroundLight);
    g_popupBrushDark = CreateSolidBrush(RGB(0, 0, 0));
}

}  // namespace

int InitSystemGraphs(const kestrel::_SYSPERFINFO& counters, wren::PERFGRAPH& cpuGraph, wren::PERFGRAPH& memoryGraph) {
    cpuGraph.Init(kHistorySpanMs, kPointIntervalMs, kSeriesCount);
    RegisterSeries(cpuGraph, kCpuUsageSeries, L"CPU Usage", L"CPU Auslastung", L"%", 1, kGreen, 100);
    RegisterSeries(cpuGraph, kSystemCpuSeries, L"System CPU Usage", L"System CPU Auslastung", L"%", 1, kRed, 100);
    RegisterSeries(cpuGraph, kContextSwitchSeries, L"Context Switches", L"Kontextwechsel", L"/s", 1, kYellow, 0);

    // Read once: memory added or a grown page file later does not move the scales.
    const unsigned physicalTotalKB = counters.GetPhysicalMemoryTotalKB();
    const unsigned commitLimitKB = counters.GetCommitChargeLimitKB();
    memoryGraph.Init(kHistorySpanMs, kPointIntervalMs, kSeriesCount);
    RegisterSeries(memoryGraph, kPhysicalMemorySeries, L"Physical Memory", L"Physikalischer Speicher", L"MB", 1024,
                   kGreen, physicalTotalKB);
    RegisterSeries(memoryGraph, kPagedMemorySeries, L"Paged Memory", L"Ausgelagerter Speicher", L"MB", 1024, kYellow,
                   commitLimitKB);
    RegisterSeries(memoryGraph, kSystemCacheSeries, L"System Cache", L"System Cache", L"MB", 1024, kRed,
                   physicalTotalKB);
    return 1;
}

int SampleInto(kestrel::_SYSPERFINFO& counters, wren::PERFGRAPH& cpuGraph, wren::PERFGRAPH& memoryGraph,
               const std::function<void()>& afterCounters) {
    counters.Update();
    if (afterCounters) afterCounters();
    cpuGraph.SetDataPoint(UsagePoint(counters.GetCPUUsage()), GetTickCount(), kCpuUsageSeries);
    cpuGraph.SetDataPoint(UsagePoint(counters.GetSystemCPUUsage()), GetTickCount(), kSystemCpuSeries);
    cpuGraph.SetDataPoint(counters.GetContextSwitchDelta(), GetTickCount(), kContextSwitchSeries);
    const unsigned usedKB = UsedPhysicalKB(counters.GetPhysicalMemoryTotalKB(), counters.GetPhysicalMemoryAvailableKB());
    memoryGraph.SetDataPoint(usedKB, GetTickCount(), kPhysicalMemorySeries);
    memoryGraph.SetDataPoint(counters.GetCommitChargeTotalKB(), GetTickCount(), kPagedMemorySeries);
    memoryGraph.SetDataPoint(counters.GetPhysicalMemorySystemCacheKB(), GetTickCount(), kSystemCacheSeries);
    return 1;
}

int InitPerformance() {
    g_sysPerfInfo.Init();
    CreatePopupBrushes();
    return InitSystemGraphs(g_sysPerfInfo, g_cpuGraph, g_memoryGraph);
}

void KeepPerfMonSource() { g_perfMonSource = kestrel::GetGlobalPerfMonSourcePtr(); }

int SamplePerformance(const std::function<void()>& afterCounters) {
    SampleInto(g_sysPerfInfo, g_cpuGraph, g_memoryGraph, afterCounters);
    kestrel::UpdateProcessHistories(g_processList);
    return 1;
}

void SetSamplerInterval(unsigned periodMs, unsigned halfPeriodMs) {
    if (g_perfMonSource) g_perfMonSource->SetUpdateInterval(periodMs, halfPeriodMs);
}

}  // namespace lmvx::perf
