// The hosted main window's status bar against the system's own figures.
#include <windows.h>
#include <psapi.h>
#include <tlhelp32.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cwchar>
#include <optional>

#include "perf/status_bar_layout.h"
#include "perf_window_host.h"

namespace perfgui_test {
namespace {

constexpr DWORD kAgreeLimitMs = 20000;   // figures move; wait until a reading of both sides agrees

// The number in a pane text of the given format, when the text has exactly that form.
std::optional<unsigned> NumberIn(const std::wstring& text, const wchar_t* format) {
    unsigned value = 0;
    wchar_t rest[8] = {};
    std::wstring pattern = std::wstring(format) + L"%7ls";
    const int fields = swscanf(text.c_str(), pattern.c_str(), &value, rest);
    if (fields != 1) return std::nullopt;
    wchar_t rebuilt[256];
    std::swprintf(rebuilt, 256, format, value);
    if (text != rebuilt) return std::nullopt;
    return value;
}

unsigned ToolhelpProcessCount() {
    HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    if (snapshot == INVALID_HANDLE_VALUE) return 0;
    PROCESSENTRY32W entry{};
    entry.dwSize = sizeof entry;
    unsigned count = 0;
    for (BOOL more = Process32FirstW(snapshot, &entry); more; more = Process32NextW(snapshot, &entry)) ++count;
    CloseHandle(snapshot);
    return count;
}

unsigned CommittedMegabytes() {
    PERFORMANCE_INFORMATION info{};
    info.cb = sizeof info;
    if (!GetPerformanceInfo(&info, sizeof info)) return 0;
    return static_cast<unsigned>((static_cast<unsigned long long>(info.CommitTotal) * info.PageSize) >> 20);
}

// Idle and total processor time so far, in 100 ns units (the kernel time includes the idle time).
std::pair<double, double> ProcessorTimes() {
    FILETIME idle{}, kernel{}, user{};
    GetSystemTimes(&idle, &kernel, &user);
    const auto value = [](const FILETIME& t) {
        return static_cast<double>((static_cast<unsigned long long>(t.dwHighDateTime) << 32) | t.dwLowDateTime);
    };
    return {value(idle), value(kernel) + value(user)};
}

class StatusBarWindow : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_NE(host_.StatusBar(), nullptr);
        ASSERT_TRUE(PumpUntil([&] { return !PaneText(host_.StatusBar(), lmvx::perf::kPaneProcesses).empty(); }, 10000))
            << "the status bar got no figures from the refresh cycle";
    }
    std::wstring Pane(int pane) const { return PaneText(host_.StatusBar(), pane); }

    HostedPerfWindow host_;
};

TEST_F(StatusBarWindow, ProcessCountCommittedMegabytesAndCpuUsageAsTheSystemsOwnInPanesLeftUncovered) {
    unsigned shown = 0, counted = 0;
    EXPECT_TRUE(PumpUntil([&] {
        const auto value = NumberIn(Pane(lmvx::perf::kPaneProcesses), L"%u Processes");
        counted = ToolhelpProcessCount();
        return value && (shown = *value) == counted;
    }, kAgreeLimitMs)) << "pane 0 \"" << Pane(lmvx::perf::kPaneProcesses) << "\", processes counted: " << counted;
    EXPECT_GT(shown, 1u);

    unsigned before = 0, after = 0;
    shown = 0;
    EXPECT_TRUE(PumpUntil([&] {
        before = CommittedMegabytes();
        const auto value = NumberIn(Pane(lmvx::perf::kPaneMemory), L"Memory: %u MB committed");
        after = CommittedMegabytes();
        // The pane was written up to one cycle ago: within the span of the figures around the read.
        return value && (shown = *value) + 2 >= std::min(before, after) && shown <= std::max(before, after) + 2;
    }, kAgreeLimitMs)) << "pane 2 \"" << Pane(lmvx::perf::kPaneMemory) << "\", committed " << before << ".." << after << " MB";
    EXPECT_GT(shown, 0u);

    // The pointer over a pane reaches the bar (its mouse moves open the pop-ups), and the list ends above it.
    HWND main = GetParent(host_.StatusBar());
    ASSERT_TRUE(PumpUntil([&] { return IsWindowVisible(main) != FALSE; }, 5000));
    PumpFor(300);
    const POINT cpuPane = CentreOf(PaneScreenRect(host_.StatusBar(), lmvx::perf::kPaneCpu));
    EXPECT_EQ(WindowFromPoint(cpuPane), host_.StatusBar());
    RECT list{}, bar{};
    GetWindowRect(GetDlgItem(main, 5001), &list);
    GetWindowRect(host_.StatusBar(), &bar);
    EXPECT_LE(list.bottom, bar.top);

    // The pane's usage covers the last refresh interval; the same interval measured here from the processor
    // times must give about the same figure (host load moves both the same way).
    int attempts = 0;
    double measured = 0;
    bool agree = false;
    while (!agree && attempts++ < 15) {
        const auto [idleBefore, totalBefore] = ProcessorTimes();
        PumpFor(2000);   // two refresh cycles at the default rate of 1000 ms
        const auto [idleAfter, totalAfter] = ProcessorTimes();
        const auto value = NumberIn(Pane(lmvx::perf::kPaneCpu), L"CPU Usage: %u%%");
        ASSERT_TRUE(value.has_value()) << "pane 1 reads \"" << Pane(lmvx::perf::kPaneCpu) << "\"";
        shown = *value;
        const double total = totalAfter - totalBefore;
        measured = total > 0 ? 100.0 * (total - (idleAfter - idleBefore)) / total : 0.0;
        std::printf("CPU usage: pane %u %%, processor times over the same 2 s %.1f %%\n", shown, measured);
        agree = shown <= 100 && std::abs(static_cast<double>(shown) - measured) <= 20.0;
    }
    EXPECT_TRUE(agree) << "pane " << shown << " %, processor times " << measured << " %";
}

}  // namespace
}  // namespace perfgui_test
