// The Options dialog driven for real: a second thread clicks its pages' boxes and presses OK or Cancel while
// this thread runs the dialog, then the test reads the option store, the registry and the tray icon.
#include <windows.h>

#include <gtest/gtest.h>

#include <functional>
#include <thread>

#include "app/option_keys.h"
#include "app/taskmgr_replacement.h"
#include "finch.h"
#include "options/options_dialog.h"
#include "pane_test_environment.h"
#include "registry_guard.h"
#include "resource.h"
#include "wren.h"

namespace {

using namespace options_test;

constexpr int kTrayId = 77;

bool Option(const lmvx::BoolOption& option) { return wren::regOptions.GetOptionBOOL(option.name, option.defaultValue) != 0; }
void SetOption(const lmvx::BoolOption& option, bool on) { wren::regOptions.SetOptionBOOL(option.name, on ? 1 : 0); }

// The page of the frame that holds the control (the pages are the frame's child dialogs).
HWND PageWith(HWND frame, int controlId) {
    for (HWND child = GetWindow(frame, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        if (GetDlgItem(child, controlId)) return child;
    }
    return nullptr;
}

struct Control {
    HWND window;
    bool Checked() const { return SendMessageW(window, BM_GETCHECK, 0, 0) == BST_CHECKED; }
    bool Enabled() const { return IsWindowEnabled(window) != FALSE; }
    // What a click does: an auto check box flips, then its page hears BN_CLICKED (pages other than the shown
    // one are hidden, and hidden buttons take no mouse clicks).
    void Click() const {
        if ((GetWindowLongPtrW(window, GWL_STYLE) & BS_TYPEMASK) == BS_AUTOCHECKBOX) {
            SendMessageW(window, BM_SETCHECK, Checked() ? BST_UNCHECKED : BST_CHECKED, 0);
        }
        SendMessageW(GetParent(window), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(window), BN_CLICKED),
                     reinterpret_cast<LPARAM>(window));
    }
};
Control At(HWND frame, int pageControl, int id) { return {GetDlgItem(PageWith(frame, pageControl), id)}; }
Control TaskManagerBox(HWND frame, int id) { return At(frame, IDC_OPTIONS_LAUNCH_ON_CAF, id); }
Control TrayBox(HWND frame, int id) { return At(frame, IDC_OPTIONS_SHOW_TRAY_ICON, id); }
Control ListBox(HWND frame, int id) { return At(frame, IDC_OPTIONS_BLANK_ZERO, id); }

class OptionsDialogTest : public ::testing::Test {
protected:
    void SetUp() override {
        for (const auto* option : {&lmvx::options::ShowTrayIcon, &lmvx::options::HideWhenMinimized,
                                   &lmvx::options::ShowTrayPerfWnd, &lmvx::options::ShowTrayPerfCPU,
                                   &lmvx::options::BlankZero, &lmvx::options::LaunchOnCAF}) {
            SetOption(*option, option->defaultValue != 0);
        }
        hooks.showTrayIcon = [this](bool show) { show ? tray.Show() : tray.Delete(); };
        hooks.restoreColumns = [this] { ++restoreCalls; };
        tray.Init(host.Get(), LoadIconW(nullptr, IDI_APPLICATION), L"options test", kTrayId, WM_APP);
    }
    void TearDown() override { tray.Delete(); }

    // Runs the dialog here while drive(frame) runs on another thread and ends it.
    void RunDialog(const std::function<void(HWND)>& drive) {
        bool found = false;
        std::thread driver([&] {
            found = pane_test::WaitForOwnWindow(L"Options", 20000, [&](HWND frame) { drive(frame); });
        });
        EXPECT_EQ(lmvx::ShowOptionsDialog(host.Get(), hooks), 1);
        driver.join();
        EXPECT_TRUE(found);
    }

    ReplacementKeyGuard keyGuard;
    pane_test::HostWindow host;
    UIP_SYSTRAYICON tray;
    lmvx::OptionsDialogHooks hooks;
    int restoreCalls = 0;
};

TEST_F(OptionsDialogTest, OkStoresEveryPageAndRemovesTheTrayIcon) {
    SetOption(lmvx::options::ShowTrayPerfWnd, true);
    ASSERT_EQ(tray.Show(), 1);
    RunDialog([](HWND frame) {
        EXPECT_FALSE(TrayBox(frame, IDC_OPTIONS_SHOW_PERF_GRAPH).Checked());
        EXPECT_FALSE(TrayBox(frame, IDC_OPTIONS_SHOW_PERF_GRAPH).Enabled());
        TrayBox(frame, IDC_OPTIONS_HIDE_MINIMIZED).Click();
        TrayBox(frame, IDC_OPTIONS_SHOW_TRAY_ICON).Click();
        EXPECT_FALSE(TrayBox(frame, IDC_OPTIONS_HIDE_MINIMIZED).Enabled()) << "follows the tray box at once";
        ListBox(frame, IDC_OPTIONS_BLANK_ZERO).Click();
        const Control replace = TaskManagerBox(frame, IDC_OPTIONS_REPLACE_TASKMGR);
        EXPECT_TRUE(replace.Enabled());
        EXPECT_FALSE(replace.Checked());
        replace.Click();
        PostMessageW(frame, WM_COMMAND, IDOK, 0);
    });
    EXPECT_FALSE(Option(lmvx::options::ShowTrayIcon));
    EXPECT_TRUE(Option(lmvx::options::HideWhenMinimized));
    EXPECT_FALSE(Option(lmvx::options::ShowTrayPerfWnd)) << "OK turns the pop-up off, as intended";
    EXPECT_FALSE(Option(lmvx::options::ShowTrayPerfCPU));
    EXPECT_FALSE(Option(lmvx::options::BlankZero));
    EXPECT_FALSE(Option(lmvx::options::LaunchOnCAF)) << "unchanged, so the launcher was not touched";
    EXPECT_FALSE(tray.IsShown());
    EXPECT_EQ(lmvx::IsTaskManagerReplaced(), 1);
}

TEST_F(OptionsDialogTest, CancelStoresNothingButRestoreColumnsActsAtOnce) {
    RunDialog([this](HWND frame) {
        ListBox(frame, IDC_OPTIONS_BLANK_ZERO).Click();
        TaskManagerBox(frame, IDC_OPTIONS_LAUNCH_ON_CAF).Click();
        TaskManagerBox(frame, IDC_OPTIONS_REPLACE_TASKMGR).Click();
        ListBox(frame, IDC_OPTIONS_RESTORE_COLUMNS).Click();
        EXPECT_EQ(restoreCalls, 1);
        PostMessageW(frame, WM_COMMAND, IDCANCEL, 0);
    });
    EXPECT_TRUE(Option(lmvx::options::BlankZero));
    EXPECT_FALSE(Option(lmvx::options::LaunchOnCAF));
    EXPECT_EQ(lmvx::IsTaskManagerReplaced(), 0);
}

TEST_F(OptionsDialogTest, WithoutAdministrativeRightsTheBoxIsDisabledAndAForcedChangeWarns) {
    ASSERT_TRUE(MakeReplacementKeyReadOnly());
    bool warned = false;
    RunDialog([&warned](HWND frame) {
        const Control replace = TaskManagerBox(frame, IDC_OPTIONS_REPLACE_TASKMGR);
        EXPECT_FALSE(replace.Enabled());
        SendMessageW(replace.window, BM_SETCHECK, BST_CHECKED, 0);
        ListBox(frame, IDC_OPTIONS_BLANK_ZERO).Click();
        PostMessageW(frame, WM_COMMAND, IDOK, 0);
        pane_test::WaitForOwnWindow(wren::GetAppName(), 20000, [&](HWND box) {
            warned = pane_test::ChildTexts(box).find(UIL_LangModule.GetLangString(IDS_OPTIONS_NEEDS_ADMIN)) !=
                     std::wstring::npos;
            PostMessageW(box, WM_COMMAND, IDOK, 0);
        });
    });
    EXPECT_TRUE(warned);
    EXPECT_FALSE(Option(lmvx::options::BlankZero)) << "the other pages are still stored";
    EXPECT_TRUE(tray.IsShown()) << "\"Show Tray Icon\" stayed on: OK shows the icon";
}

}  // namespace
