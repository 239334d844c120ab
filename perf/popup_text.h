// Figures and texts of the performance pop-ups: values in, values out. All memory figures in KB.
#pragma once
#include <string>

namespace lmvx::perf {

// Used physical memory in percent of the total (0 when the total is under 10 KB), 0 to 100.
unsigned UsedPhysicalPercent(unsigned totalKB, unsigned availableKB);
// Committed memory in percent of the commit limit (0 when the limit is under 10 KB), 0 to 100.
unsigned CommitPercent(unsigned commitKB, unsigned limitKB);
inline unsigned KilobytesToMegabytes(unsigned kb) { return kb >> 10; }

// "12 %": the usage rounded to whole percent.
std::wstring CpuUsageText(double usagePercent);
// "1234/s"
std::wstring ContextSwitchText(unsigned perSecond);
// "(42 %) 1234 MB"
std::wstring PercentAndMegabytesText(unsigned percent, unsigned megabytes);

}  // namespace lmvx::perf
