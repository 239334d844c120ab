// The system performance sampler: the system counters, the CPU and memory history graphs and the
// performance source, created at start-up and fed once per refresh cycle on the refresh thread.
//
// Start-up:      InitPerformance(); ... KeepPerfMonSource();
// Refresh cycle: hooks.sampleSystem runs SamplePerformance (AddPerfDisplayHooks)  (right after the provider's Update)
//                hooks.setSamplerInterval = lmvx::perf::SetSamplerInterval;
// Readers:       g_sysPerfInfo, g_cpuGraph, g_memoryGraph, g_perfMonSource (pop-ups, status bar, tray icon).
#pragma once
#include <windows.h>

#include <functional>

#include "kestrel.h"
#include "wren.h"

namespace lmvx::perf {

// ---- Series of the two system graphs ----
constexpr unsigned kHistorySpanMs = 180000;
constexpr unsigned kPointIntervalMs = 500;
constexpr unsigned kSeriesCount = 3;

constexpr unsigned kCpuUsageSeries = 0;
constexpr unsigned kSystemCpuSeries = 1;
constexpr unsigned kContextSwitchSeries = 2;
constexpr unsigned kPhysicalMemorySeries = 0;
constexpr unsigned kPagedMemorySeries = 1;
constexpr unsigned kSystemCacheSeries = 2;

constexpr COLORREF kGreen = RGB(0, 255, 0);
constexpr COLORREF kRed = RGB(255, 0, 0);
constexpr COLORREF kYellow = RGB(255, 255, 0);
constexpr COLORREF kPopupBackgroundLight = RGB(248, 248, 248);

// ---- Figures derived from the counters (pure) ----
// A usage in percent as a graph point: truncated toward zero (99.9 is 99), negative as 0.
constexpr unsigned UsagePoint(double percent) { return percent > 0 ? static_cast<unsigned>(percent) : 0u; }
// Used physical memory in KB; never below 0.
constexpr unsigned UsedPhysicalKB(unsigned totalKB, unsigned availableKB) {
    return totalKB > availableKB ? totalKB - availableKB : 0u;
}
// (The pop-ups' percentages are in popup_text.h.)

// ---- Building blocks, on given objects ----
// Registers the three series of each graph; the memory scale maxima are the counters' figures now and stay.
int InitSystemGraphs(const kestrel::_SYSPERFINFO& counters, wren::PERFGRAPH& cpuGraph, wren::PERFGRAPH& memoryGraph);
// Updates the counters, calls afterCounters (the tray icon's update), and adds one point to each of the six
// series, each stamped just before it is added.
int SampleInto(kestrel::_SYSPERFINFO& counters, wren::PERFGRAPH& cpuGraph, wren::PERFGRAPH& memoryGraph,
               const std::function<void()>& afterCounters = {});

// ---- The program's objects ----
extern kestrel::_SYSPERFINFO g_sysPerfInfo;
extern wren::PERFGRAPH g_cpuGraph;
extern wren::PERFGRAPH g_memoryGraph;
extern kestrel::PM_PERFMONSOURCE* g_perfMonSource;   // null until KeepPerfMonSource()
extern HBRUSH g_popupBrushLight;                     // pop-up backgrounds (0xF8F8F8 and black)
extern HBRUSH g_popupBrushDark;

// Start-up: counters, brushes, graphs. Returns 1.
int InitPerformance();
// Start-up: keeps the library's performance source for the status bar and the tray icon.
void KeepPerfMonSource();
// One sample, on the refresh thread right after the provider's update: counters, afterCounters (the tray
// icon), the six graph points, and each process's own history.
int SamplePerformance(const std::function<void()>& afterCounters = {});
// A new refresh rate: the performance source's period and its half.
void SetSamplerInterval(unsigned periodMs, unsigned halfPeriodMs);

}  // namespace lmvx::perf
