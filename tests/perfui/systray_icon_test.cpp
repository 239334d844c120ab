// The notification-area icon object against the shell of the test prefix.
#include <windows.h>
#include <shellapi.h>

#include <gtest/gtest.h>

#include "finch.h"

namespace {

constexpr UINT kCallback = 4500;
constexpr int kIconId = 1035;

// Asks the shell directly whether it holds the icon: changing an icon it does not know fails.
bool ShellHoldsIcon(HWND owner, int id) {
    NOTIFYICONDATAW data{};
    data.cbSize = sizeof(data);
    data.hWnd = owner;
    data.uID = static_cast<UINT>(id);
    data.uFlags = NIF_TIP;
    lstrcpynW(data.szTip, L"probe", ARRAYSIZE(data.szTip));
    return Shell_NotifyIconW(NIM_MODIFY, &data) != FALSE;
}

class SysTrayIcon : public testing::Test {
protected:
    void SetUp() override { ASSERT_NE(owner_, nullptr); }
    void TearDown() override { DestroyWindow(owner_); }
    HWND owner_ = CreateWindowExW(0, L"STATIC", L"tray owner", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
    HICON icon_ = LoadIconW(nullptr, IDI_APPLICATION);
    HICON other_ = LoadIconW(nullptr, IDI_INFORMATION);
};

// Show adds the icon, a picture alone shows nothing; what a restarted shell sees (none of the old icons,
// then the broadcast) brings a shown icon back; Delete removes it, and a deleted one stays away.
TEST_F(SysTrayIcon, ShowAddsTheIconComesBackWhenTheTaskbarIsCreatedAgainAndDeleteRemovesIt) {
    UIP_SYSTRAYICON tray;
    ASSERT_EQ(tray.Init(owner_, icon_, L"Lumivex 2008", kIconId, kCallback), 1);
    EXPECT_FALSE(ShellHoldsIcon(owner_, kIconId));
    EXPECT_EQ(tray.SetIcon(other_), 1);
    EXPECT_FALSE(ShellHoldsIcon(owner_, kIconId)) << "a picture alone shows nothing";
    EXPECT_EQ(tray.GetIcon(), other_);
    EXPECT_EQ(tray.Show(), 1);
    EXPECT_EQ(tray.IsShown(), 1);
    EXPECT_TRUE(ShellHoldsIcon(owner_, kIconId));
    EXPECT_EQ(tray.Show(), 1) << "a second Show brings the shown icon up to date";
    EXPECT_EQ(tray.SetIcon(icon_), 1);
    EXPECT_EQ(tray.GetIcon(), icon_);

    NOTIFYICONDATAW data{};
    data.cbSize = sizeof(data);
    data.hWnd = owner_;
    data.uID = kIconId;
    ASSERT_TRUE(Shell_NotifyIconW(NIM_DELETE, &data));
    ASSERT_NE(tray.GetTaskbarListener(), nullptr);
    SendMessageW(tray.GetTaskbarListener(), RegisterWindowMessageW(L"TaskbarCreated"), 0, 0);
    EXPECT_TRUE(ShellHoldsIcon(owner_, kIconId));
    EXPECT_EQ(tray.IsShown(), 1);
    EXPECT_EQ(tray.Delete(), 1);
    EXPECT_EQ(tray.IsShown(), 0);
    EXPECT_FALSE(ShellHoldsIcon(owner_, kIconId));
    SendMessageW(tray.GetTaskbarListener(), RegisterWindowMessageW(L"TaskbarCreated"), 0, 0);
    EXPECT_FALSE(ShellHoldsIcon(owner_, kIconId));
}

TEST(SysTrayIconWithoutOwner, InitFailsForNoWindow) {
    UIP_SYSTRAYICON tray;
    EXPECT_EQ(tray.Init(nullptr, nullptr, L"tip", kIconId, kCallback), 0);
    EXPECT_EQ(tray.Show(), 0);
    EXPECT_EQ(tray.SetIcon(nullptr), 1);
    EXPECT_EQ(tray.Delete(), 1);
}

}  // namespace
