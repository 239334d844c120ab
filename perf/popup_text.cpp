#include "perf/popup_text.h"

#include <cwchar>

namespace lmvx::perf {

namespace {

// percent = 100 - part * 10 / (whole / 10) in 32-bit unsigned arithmetic; a whole under 10 would divide by
// zero and shows 0 %, and a part larger than the whole (counters read at different moments) never wraps.
unsigned PercentOfTenths(unsigned part, unsigned whole) {
    const unsigned tenth = whole / 10;
    if (tenth == 0) return 0;
    const unsigned ratio = part * 10 / tenth;
    return ratio > 100 ? 100 : ratio;
}

std::wstring Format(const wchar_t* format, auto... values) {
    wchar_t buffer[64];
    // msvcrt's bounded print: MinGW's own swprintf may read %s as a narrow string.
    const int written = _snwprintf(buffer, 63, format, values...);
    buffer[63] = L'\0';
    return written < 0 ? std::wstring(buffer) : std::wstring(buffer, static_cast<size_t>(written));
}

}  // namespace

unsigned UsedPhysicalPercent(unsigned totalKB, unsigned availableKB) {
    if (totalKB / 10 == 0) return 0;
    return 100 - PercentOfTenths(availableKB, totalKB);
}

unsigned CommitPercent(unsigned commitKB, unsigned limitKB) {
    return PercentOfTenths(commitKB, limitKB);
}

std::wstring CpuUsageText(double usagePercent) {
    return Format(L"%.0f %%", usagePercent);
}

std::wstring ContextSwitchText(unsigned perSecond) {
    return Format(L"%d/s", static_cast<int>(perSecond));
}

std::wstring PercentAndMegabytesText(unsigned percent, unsigned megabytes) {
    return Format(L"(%d %%) %d MB", static_cast<int>(percent), static_cast<int>(megabytes));
}

}  // namespace lmvx::perf
