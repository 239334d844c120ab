// The process menus of the real main window, hosted in this test program, for child processes the test
// starts and for the program itself: the list's context menu and the main menu's Process popup.
#include <gtest/gtest.h>

#include <windows.h>
#include <commctrl.h>

#include <algorithm>
#include <tuple>

#include "app/lmvx.h"
#include "child_process.h"
#include "hosted_main_window.h"
#include "kestrel.h"
#include "mainwnd/process_menu.h"
#include "resource.h"

namespace mainwnd_test {
namespace {

// The limited-access click's answers: the menu's first item is chosen by the keyboard, the dialog it
// opens is noted and closed.
thread_local HWND g_limitedAccessDialog = nullptr;

LRESULT CALLBACK AnswerNoticeClick(int code, WPARAM wParam, LPARAM lParam) {
    const auto* message = reinterpret_cast<const CWPSTRUCT*>(lParam);
    if (code == HC_ACTION && message->message == WM_INITMENUPOPUP) {
        PostMessageW(message->hwnd, WM_KEYDOWN, VK_DOWN, 0);
        PostMessageW(message->hwnd, WM_KEYDOWN, VK_RETURN, 0);
    } else if (code == HC_ACTION && message->message == WM_INITDIALOG && GetDlgItem(message->hwnd, IDC_LIMITED_HEADLINE)) {
        g_limitedAccessDialog = message->hwnd;
        PostMessageW(message->hwnd, WM_COMMAND, IDCANCEL, 0);
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

constexpr DWORD kRowWaitMs = 60000;

// The item with this id, or with this text when one is given; null when there is none.
const SeenItem* Find(const std::vector<SeenItem>& items, UINT id, const wchar_t* text = nullptr) {
    for (const SeenItem& item : items) {
        if (text ? item.text == text : item.id == id) return &item;
    }
    return nullptr;
}

class ProcessMenuWindowTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        program_ = new ScopedHostedProgram(L"LumivexMainWindowMenuTest");
        main_ = new HostedMainWindow();
    }
    static void TearDownTestSuite() {
        delete main_;
        delete program_;
    }
    void SetUp() override { ASSERT_NE(main_->Get(), nullptr) << "dialog 129 did not open"; }

    std::vector<SeenItem> ContextMenuFor(unsigned pid) {
        EXPECT_TRUE(main_->SelectProcess(pid, kRowWaitMs)) << "no row for process " << pid;
        return RightClickMenu(main_->Get(), main_->List());
    }
    // The popup at position 2 of the main menu once it shows the process's first item as expected.
    bool ProcessPopupShows(UINT firstId, bool firstGrayed) {
        return PumpUntil(
            [&] {
                const auto popup = ReadMenu(GetSubMenu(GetMenu(main_->Get()), 2));
                return !popup.empty() && popup[0].id == firstId && popup[0].grayed == firstGrayed;
            },
            kRowWaitMs);
    }

    static ScopedHostedProgram* program_;
    static HostedMainWindow* main_;
};

ScopedHostedProgram* ProcessMenuWindowTest::program_ = nullptr;
HostedMainWindow* ProcessMenuWindowTest::main_ = nullptr;

TEST_F(ProcessMenuWindowTest, ContextMenuOfARunningChildOffersEveryActionWithItsTexts) {
    lmvx_test::ChildProcess child(L"sleep 60000");
    ASSERT_TRUE(child.Started());
    const auto menu = ContextMenuFor(child.Pid());
    ASSERT_EQ(menu.size(), 14u);

    // The child has no window: both window items say so without dots and are grayed.
    const std::tuple<UINT, const wchar_t*, bool> items[] = {
        {IDM_PAUSE_PROCESS, L"Pause Process", false},     {IDM_PAGE_OUT_PROCESS, L"Page Out Process", false},
        {IDM_CLOSE_WINDOW, L"Close Window", true},        {IDM_BRING_TO_FRONT, L"Bring to Front", true},
        {IDM_OPEN_CONTAINING_FOLDER, L"Open Containing Folder", false},
        {IDM_TERMINATE_PROCESS, L"Terminate Process", false}, {IDM_RESTART_PROCESS, L"Restart Process", false},
        {IDM_PROPERTIES, L"Properties", false}};
    for (const auto& [id, text, grayed] : items) {
        const SeenItem* item = Find(menu, id);
        ASSERT_NE(item, nullptr) << id;
        EXPECT_EQ(item->text, text);
        EXPECT_EQ(item->grayed, grayed) << id;
    }
    EXPECT_TRUE(Find(menu, IDM_PROPERTIES)->isDefault);
    const SeenItem* priority = Find(menu, 0, L"Priority");
    ASSERT_NE(priority, nullptr);
    EXPECT_FALSE(priority->grayed);
    ASSERT_EQ(priority->submenu.size(), 8u);
    EXPECT_TRUE(Find(priority->submenu, IDM_PRIORITY_NORMAL)->checked);
    EXPECT_EQ(std::count_if(priority->submenu.begin(), priority->submenu.end(), [](const SeenItem& i) { return i.checked; }), 1);
    EXPECT_FALSE(Find(priority->submenu, IDM_PRIORITY_IDLE)->grayed);
    EXPECT_EQ(priority->submenu.back().text, L"Paused");
    EXPECT_EQ(priority->submenu.back().id, static_cast<UINT>(IDM_PAUSE_PROCESS));
}

TEST_F(ProcessMenuWindowTest, PrioritySubmenuFollowsAChangedPriorityClass) {
    lmvx_test::ChildProcess child(L"sleep 60000");
    ASSERT_TRUE(child.Started());
    ASSERT_TRUE(SetPriorityClass(child.Handle(), BELOW_NORMAL_PRIORITY_CLASS));
    // The provider sees the new class after one of its updates.
    EXPECT_TRUE(PumpUntil(
        [&] {
            const lmvx::UniqueMenu submenu = lmvx::BuildPrioritySubmenu(lmvx::g_processList, child.Pid());
            return submenu && lmvx_test::CheckedCommands(submenu.Get()) == std::vector<UINT>{IDM_PRIORITY_BELOW_NORMAL};
        },
        kRowWaitMs));
}

// The main menu's Process popup follows the selection each cycle; a paused selection turns the popup and
// the pane's pause button to Resume. For the program itself Pause, Restart, Idle and Paused are grayed.
TEST_F(ProcessMenuWindowTest, TheProcessPopupAndThePauseButtonFollowTheSelectionAndItsPause) {
    lmvx_test::ChildProcess child(L"sleep 60000");
    ASSERT_TRUE(child.Started());
    ASSERT_TRUE(main_->SelectProcess(child.Pid(), kRowWaitMs));
    HWND pane = FindWindowExW(main_->Get(), nullptr, nullptr, nullptr);
    for (; pane && !GetDlgItem(pane, IDC_PANE_PAUSE); pane = FindWindowExW(main_->Get(), pane, nullptr, nullptr)) {}
    ASSERT_NE(pane, nullptr) << "no details pane";
    const auto pauseButtonReads = [&](const wchar_t* text) {
        return PumpUntil(
            [&] {
                wchar_t shown[64] = {};
                GetDlgItemTextW(pane, IDC_PANE_PAUSE, shown, 64);
                return std::wstring(shown) == text;
            },
            kRowWaitMs);
    };
    EXPECT_TRUE(ProcessPopupShows(IDM_PAUSE_PROCESS, false));
    EXPECT_TRUE(pauseButtonReads(L"Pause Process"));

    ASSERT_TRUE(kestrel::PRM_SuspendProcess(child.Pid()));
    EXPECT_TRUE(ProcessPopupShows(IDM_RESUME_PROCESS, false));
    EXPECT_TRUE(pauseButtonReads(L"Resume Process"));
    const auto popup = ReadMenu(GetSubMenu(GetMenu(main_->Get()), 2));
    EXPECT_EQ(popup[0].text, L"Resume Process");
    EXPECT_EQ(Find(popup, IDM_PAUSE_PROCESS), nullptr);
    // The same menu is the list's context menu.
    const auto menu = RightClickMenu(main_->Get(), main_->List());
    ASSERT_FALSE(menu.empty());
    EXPECT_EQ(menu[0].id, static_cast<UINT>(IDM_RESUME_PROCESS));
    const SeenItem* priority = Find(popup, 0, L"Priority");
    ASSERT_NE(priority, nullptr);
    EXPECT_TRUE(priority->submenu.back().checked) << "the Paused item of the priority submenu";

    ASSERT_TRUE(kestrel::PRM_ResumeProcess(child.Pid()));
    EXPECT_TRUE(ProcessPopupShows(IDM_PAUSE_PROCESS, false));
    EXPECT_TRUE(pauseButtonReads(L"Pause Process"));
    ASSERT_TRUE(main_->SelectProcess(GetCurrentProcessId(), kRowWaitMs));
    EXPECT_TRUE(ProcessPopupShows(IDM_PAUSE_PROCESS, true));
    wchar_t title[64] = {};
    GetMenuStringW(GetMenu(main_->Get()), 2, title, 64, MF_BYPOSITION);
    EXPECT_STREQ(title, L"Process");
    const auto own = RightClickMenu(main_->Get(), main_->List());
    ASSERT_FALSE(own.empty());
    EXPECT_TRUE(Find(own, IDM_PAUSE_PROCESS)->grayed);
    EXPECT_TRUE(Find(own, IDM_RESTART_PROCESS)->grayed);
    EXPECT_FALSE(Find(own, IDM_TERMINATE_PROCESS)->grayed);
    const SeenItem* ownPriority = Find(own, 0, L"Priority");
    ASSERT_NE(ownPriority, nullptr);
    EXPECT_TRUE(Find(ownPriority->submenu, IDM_PRIORITY_IDLE)->grayed);
    EXPECT_FALSE(Find(ownPriority->submenu, IDM_PRIORITY_HIGH)->grayed);
    EXPECT_TRUE(ownPriority->submenu.back().grayed);
}

TEST_F(ProcessMenuWindowTest, AProcessOutsideTheSnapshotGetsOnlyAGrayedProperties) {
    const lmvx::UniqueMenu menu = lmvx::BuildProcessMenu(lmvx::g_processList, lmvx::kNoProcess);
    ASSERT_TRUE(menu);
    const auto items = ReadMenu(menu.Get());
    ASSERT_EQ(items.size(), 1u);
    EXPECT_EQ(items[0].id, static_cast<UINT>(IDM_PROPERTIES));
    EXPECT_EQ(items[0].text, L"Properties");
    EXPECT_TRUE(items[0].grayed);
    EXPECT_TRUE(items[0].isDefault);
    EXPECT_EQ(lmvx::BuildPrioritySubmenu(lmvx::g_processList, lmvx::kNoProcess).Get(), nullptr);
}

TEST_F(ProcessMenuWindowTest, AClickOnTheLimitedAccessPaneReachesTheLimitedAccessDialog) {
    g_limitedAccessDialog = nullptr;
    HHOOK hook = SetWindowsHookExW(WH_CALLWNDPROC, AnswerNoticeClick, nullptr, GetCurrentThreadId());
    NMMOUSE click{};
    click.hdr = NMHDR{GetDlgItem(main_->Get(), IDC_STATUS_BAR), IDC_STATUS_BAR, static_cast<UINT>(NM_CLICK)};
    click.dwItemSpec = 4;   // the limited-access notice
    SendMessageW(main_->Get(), WM_NOTIFY, IDC_STATUS_BAR, reinterpret_cast<LPARAM>(&click));
    UnhookWindowsHookEx(hook);
    EXPECT_NE(g_limitedAccessDialog, nullptr) << "the menu's first item did not open the limited-access dialog";
}

}  // namespace
}  // namespace mainwnd_test
