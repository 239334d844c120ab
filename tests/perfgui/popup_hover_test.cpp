// The CPU and memory pop-ups driven with the real pointer over the hosted main window's status bar.
#include <windows.h>

#include <gtest/gtest.h>

#include <string>

#include "perf/perf_popup.h"
#include "perf/status_bar_layout.h"
#include "perf_window_host.h"

namespace perfgui_test {
namespace {

constexpr wchar_t kCpuCaption[] = L"CPU Usage History";
constexpr wchar_t kMemoryCaption[] = L"Memory Usage History";
// Generous bounds for things that happen within a few timer periods; never a timing assertion.
constexpr DWORD kShowLimitMs = 5000;
constexpr DWORD kHideLimitMs = 5000;

std::string ClassOf(HWND window) {
    char name[64] = {};
    GetClassNameA(window, name, 64);
    return name;
}

bool IsShown(HWND window) { return window && IsWindowVisible(window); }
bool IsPinned(HWND window) { return (GetWindowLongPtrW(window, GWL_STYLE) & lmvx::perf::kPinnedStyleBit) != 0; }

// A point on the screen away from the main window and both pop-ups.
POINT Elsewhere(HWND main) {
    RECT rect{};
    GetWindowRect(main, &rect);
    return POINT{rect.right + 40 < GetSystemMetrics(SM_CXSCREEN) ? rect.right + 40 : 5, 5};
}

class PopupHover : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_NE(host_.Main(), nullptr);
        ASSERT_NE(host_.StatusBar(), nullptr);
        cpu_ = host_.FindPopup(kCpuCaption);
        memory_ = host_.FindPopup(kMemoryCaption);
        ASSERT_NE(cpu_, nullptr);
        ASSERT_NE(memory_, nullptr);
        // The panes have their places once the window is laid out and shown.
        ASSERT_TRUE(PumpUntil([&] { return IsWindowVisible(host_.Main()) != FALSE; }, kShowLimitMs));
        // Laid out again as after a resize: the first layout has its own test (StatusBarWindow), and the
        // pop-ups are tested here on their own.
        RECT client{};
        GetClientRect(host_.Main(), &client);
        SendMessageW(host_.Main(), WM_SIZE, SIZE_RESTORED, MAKELPARAM(client.right, client.bottom));
        PumpFor(300);
    }
    void TearDown() override { MovePointerTo(Elsewhere(host_.Main())); }

    POINT PaneCentre(int pane) const { return CentreOf(PaneScreenRect(host_.StatusBar(), pane)); }

    HostedPerfWindow host_;
    HWND cpu_ = nullptr;
    HWND memory_ = nullptr;
};

// Resting on the CPU pane shows its pop-up, moving within the pop-up keeps it open, the memory pane shows
// the memory pop-up and hides the CPU one, and leaving hides each; a click pins a pop-up until it is closed.
TEST_F(PopupHover, EachPaneShowsItsPopupWhileThePointerIsOnItOrThePopupAndAClickPinsIt) {
    EXPECT_FALSE(IsShown(cpu_));
    const POINT pane = PaneCentre(lmvx::perf::kPaneCpu);
    MovePointerTo(pane);
    POINT cursor{};
    ASSERT_TRUE(PumpUntil([&] { return IsShown(cpu_); }, kShowLimitMs))
        << "pane centre " << pane.x << "," << pane.y << " pointer " << (GetCursorPos(&cursor), cursor.x) << ","
        << cursor.y << " window there " << WindowFromPoint(pane) << " class " << ClassOf(WindowFromPoint(pane)) << " parent "
        << GetAncestor(WindowFromPoint(pane), GA_ROOT) << " main " << host_.Main() << " bar " << host_.StatusBar();
    EXPECT_FALSE(IsShown(memory_));
    EXPECT_FALSE(IsPinned(cpu_)) << "hovering alone never pins";
    // Its figure and graph are filled from the counters.
    wchar_t value[64] = {};
    GetDlgItemTextW(cpu_, 1023, value, 64);
    EXPECT_NE(std::wstring(value).find(L'%'), std::wstring::npos) << "CPU usage reads \"" << value << "\"";

    RECT popup{};
    GetWindowRect(cpu_, &popup);
    for (POINT within : {CentreOf(popup), POINT{popup.left + 3, popup.top + 3}}) {
        MovePointerTo(within);
        PumpFor(4 * lmvx::perf::kPopupTimerPeriod);
        EXPECT_TRUE(IsShown(cpu_));
    }
    MovePointerTo(Elsewhere(host_.Main()));
    EXPECT_TRUE(PumpUntil([&] { return !IsShown(cpu_); }, kHideLimitMs));

    MovePointerTo(pane);
    ASSERT_TRUE(PumpUntil([&] { return IsShown(cpu_); }, kShowLimitMs));
    MovePointerTo(PaneCentre(lmvx::perf::kPaneMemory));
    ASSERT_TRUE(PumpUntil([&] { return IsShown(memory_) && !IsShown(cpu_); }, kShowLimitMs));
    GetDlgItemTextW(memory_, 1023, value, 64);
    EXPECT_NE(std::wstring(value).find(L" MB"), std::wstring::npos) << "physical memory reads \"" << value << "\"";
    MovePointerTo(Elsewhere(host_.Main()));
    EXPECT_TRUE(PumpUntil([&] { return !IsShown(memory_); }, kHideLimitMs));

    // A click pins the pop-up until it is closed.
    MovePointerTo(PaneCentre(lmvx::perf::kPaneCpu));
    ASSERT_TRUE(PumpUntil([&] { return IsShown(cpu_); }, kShowLimitMs));
    GetWindowRect(cpu_, &popup);
    MovePointerTo(CentreOf(popup));
    ClickLeftButton();
    ASSERT_TRUE(PumpUntil([&] { return IsPinned(cpu_); }, kShowLimitMs));

    // Pinned: leaving, and hovering the other pane, leave it where it is.
    MovePointerTo(Elsewhere(host_.Main()));
    PumpFor(4 * lmvx::perf::kPopupTimerPeriod);
    EXPECT_TRUE(IsShown(cpu_));
    MovePointerTo(PaneCentre(lmvx::perf::kPaneMemory));
    ASSERT_TRUE(PumpUntil([&] { return IsShown(memory_); }, kShowLimitMs));
    EXPECT_TRUE(IsShown(cpu_)) << "the memory pane hides only an unpinned CPU pop-up";
    MovePointerTo(Elsewhere(host_.Main()));
    ASSERT_TRUE(PumpUntil([&] { return !IsShown(memory_); }, kHideLimitMs));
    EXPECT_TRUE(IsShown(cpu_));

    // Closing unpins and hides it; afterwards hovering shows it again as usual.
    SendMessageW(cpu_, WM_CLOSE, 0, 0);
    EXPECT_FALSE(IsShown(cpu_));
    EXPECT_FALSE(IsPinned(cpu_));
    MovePointerTo(PaneCentre(lmvx::perf::kPaneCpu));
    EXPECT_TRUE(PumpUntil([&] { return IsShown(cpu_); }, kShowLimitMs));
}

}  // namespace
}  // namespace perfgui_test
