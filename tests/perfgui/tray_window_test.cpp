// The hosted main window's notification-area icon: in the shell with its tip, hover and its menu.
#include <windows.h>
#include <shellapi.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "app/option_keys.h"
#include "hosted_main_window.h"
#include "perf/tray_icon.h"
#include "perf_window_host.h"
#include "resource.h"
#include "shell_tray_tips.h"
#include "wren.h"

namespace perfgui_test {
namespace {

using lmvx_test::SeenItem;

// The shell answers a change of an icon only when it holds that icon; no flags change nothing.
bool ShellHoldsIcon(HWND owner, int id) {
    NOTIFYICONDATAW data{};
    data.cbSize = sizeof data;
    data.hWnd = owner;
    data.uID = static_cast<UINT>(id);
    return Shell_NotifyIconW(NIM_MODIFY, &data) != FALSE;
}

thread_local std::vector<SeenItem>* g_seen = nullptr;

LRESULT CALLBACK CaptureMenu(int code, WPARAM wParam, LPARAM lParam) {
    const auto* message = reinterpret_cast<const CWPSTRUCT*>(lParam);
    if (code == HC_ACTION && message->message == WM_INITMENUPOPUP && g_seen && g_seen->empty()) {
        *g_seen = lmvx_test::ReadMenu(reinterpret_cast<HMENU>(message->wParam));
        EndMenu();
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

// A right click on the icon as the shell reports it; the menu is read while open and dismissed.
std::vector<SeenItem> TrayMenuOf(HWND main) {
    std::vector<SeenItem> seen;
    g_seen = &seen;
    HHOOK hook = SetWindowsHookExW(WH_CALLWNDPROC, CaptureMenu, nullptr, GetCurrentThreadId());
    SendMessageW(main, lmvx::perf::kTrayCallbackMessage, lmvx::perf::kTrayIconId, WM_RBUTTONUP);
    if (hook) UnhookWindowsHookEx(hook);
    g_seen = nullptr;
    return seen;
}

class TrayWindow : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_NE(host_.Main(), nullptr);
        ASSERT_TRUE(PumpUntil([&] { return IsWindowVisible(host_.Main()) != FALSE; }, 5000));
    }
    HostedPerfWindow host_;
};

// The icon in the shell with its tip; hovering it shows the CPU pop-up above the taskbar unless the graph
// option is off; its menu's items and their states follow the window and the options.
TEST_F(TrayWindow, TheShellHoldsTheIconWithItsTipItsHoverShowsTheCpuPopupAndItsMenuFollowsWindowAndOptions) {
    ASSERT_NE(FindWindowW(L"Shell_TrayWnd", nullptr), nullptr) << "no notification area in this desktop";
    EXPECT_TRUE(ShellHoldsIcon(host_.Main(), lmvx::perf::kTrayIconId));
    const std::vector<std::wstring> tips = ShellTrayTips();
    EXPECT_NE(std::find(tips.begin(), tips.end(), std::wstring(L"Lumivex 2008")), tips.end())
        << tips.size() << " tips in the shell";

    std::vector<SeenItem> menu = TrayMenuOf(host_.Main());
    ASSERT_EQ(menu.size(), 6u);
    const std::pair<UINT, const wchar_t*> items[] = {{IDM_TRAY_SHOW_HIDE, L"Hide Lumivex"}, {0, L""},
                                                     {IDM_SHOW_PERFORMANCE_GRAPH, L"Show Performance Graph"},
                                                     {IDM_KEEP_IN_FOREGROUND, L"Keep Lumivex in &Foreground"},
                                                     {0, L""}, {IDM_EXIT, L"Exit Lumivex"}};
    for (size_t i = 0; i < menu.size(); ++i) {
        EXPECT_EQ(menu[i].separator, items[i].first == 0) << i;
        if (items[i].first == 0) continue;
        EXPECT_EQ(menu[i].id, items[i].first) << i;
        EXPECT_EQ(menu[i].text, items[i].second) << i;
    }
    EXPECT_TRUE(menu[0].isDefault);
    EXPECT_TRUE(menu[2].checked);
    EXPECT_FALSE(menu[3].checked);

    HWND cpu = host_.FindPopup(L"CPU Usage History");
    ASSERT_NE(cpu, nullptr);
    MovePointerTo(POINT{5, 5});
    SendMessageW(host_.Main(), lmvx::perf::kTrayCallbackMessage, lmvx::perf::kTrayIconId, WM_MOUSEMOVE);
    EXPECT_TRUE(IsWindowVisible(cpu)) << "the tray hover shows the pop-up at once";
    RECT popup{};
    GetWindowRect(cpu, &popup);
    EXPECT_GT(popup.left, GetSystemMetrics(SM_CXSCREEN) / 2) << "at the right of the screen";
    EXPECT_GT(popup.top, GetSystemMetrics(SM_CYSCREEN) / 3) << "at the bottom of the screen";
    MovePointerTo(POINT{40, 40});
    EXPECT_TRUE(PumpUntil([&] { return !IsWindowVisible(cpu); }, 5000));

    // With the graph option off, hovering the icon shows nothing.
    wren::regOptions.SetOptionBOOL(lmvx::options::ShowTrayPerfWnd.name, 0);
    SendMessageW(host_.Main(), lmvx::perf::kTrayCallbackMessage, lmvx::perf::kTrayIconId, WM_MOUSEMOVE);
    PumpFor(300);
    EXPECT_FALSE(IsWindowVisible(cpu));

    ShowWindow(host_.Main(), SW_HIDE);
    SetWindowPos(host_.Main(), HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    menu = TrayMenuOf(host_.Main());
    ASSERT_EQ(menu.size(), 6u);
    EXPECT_EQ(menu[0].text, L"Show Lumivex");
    EXPECT_TRUE(menu[0].isDefault);
    EXPECT_FALSE(menu[2].checked);
    EXPECT_TRUE(menu[3].checked);
}

}  // namespace
}  // namespace perfgui_test
