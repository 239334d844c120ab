// The real main window for a bounded number of rounds of refreshes in front and behind, selections, sorts and
// processes starting and ending: the refresh thread must cycle on and the rows agree with their item data.
#include <gtest/gtest.h>
#include <windows.h>
#include <commctrl.h>

#include <deque>
#include <random>
#include <set>
#include <string>

#include "app/lmvx.h"
#include "child_process.h"
#include "hosted_main_window.h"
#include "resource.h"

namespace mainwnd_test {
namespace {

constexpr int kRounds = 60;
constexpr unsigned kSortCommands[] = {IDM_SORT_PROCESS_NAME, IDM_SORT_PROCESS_ID, IDM_SORT_CPU_USAGE,
                                      IDM_SORT_PROCESS_TREE, IDM_SORT_REVERSE,    IDM_SORT_START_ORDER};

// The refresh thread looks at the list's selection mark once a cycle, in front and behind.
thread_local HWND g_watchedList = nullptr;
thread_local unsigned g_cyclesSeen = 0;

LRESULT CALLBACK CountCycles(int code, WPARAM wParam, LPARAM lParam) {
    const auto* message = reinterpret_cast<const CWPSTRUCT*>(lParam);
    if (code == HC_ACTION && message->hwnd == g_watchedList && message->message == LVM_GETSELECTIONMARK) ++g_cyclesSeen;
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

// Rows carry distinct PIDs, a row's process-id cell is either not yet written or its own PID, and its icon is
// in the list the control draws from, which is not the one the provider adds to on the refresh thread.
testing::AssertionResult RowsAgreeWithTheirPids(HWND list) {
    HIMAGELIST icons = ListView_GetImageList(list, LVSIL_SMALL);
    if (icons == lmvx::g_processList.GetImageList()) return testing::AssertionFailure() << "draws the provider's icons";
    std::set<LPARAM> pids;
    for (int row = 0; row < ListView_GetItemCount(list); ++row) {
        LVITEMW item{LVIF_PARAM | LVIF_IMAGE, row};
        wchar_t pidCell[32] = {};
        ListView_GetItem(list, &item);
        ListView_GetItemText(list, row, 7, pidCell, 32);
        if (item.iImage >= ImageList_GetImageCount(icons)) return testing::AssertionFailure() << "no icon " << item.iImage;
        if (!pids.insert(item.lParam).second) return testing::AssertionFailure() << "PID " << item.lParam << " twice";
        if (pidCell[0] && std::to_wstring(item.lParam) != pidCell) {
            return testing::AssertionFailure() << "the row of PID " << item.lParam << " shows another PID";
        }
    }
    return testing::AssertionSuccess();
}

TEST(RefreshStress, RowsStayConsistentAndTheRefreshGoesOnUnderLoad) {
    ScopedHostedProgram program(L"LumivexRefreshStressTest");
    HostedMainWindow main;
    ASSERT_NE(main.Get(), nullptr);
    HWND other = CreateWindowExW(0, L"STATIC", L"other", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 200, 100, nullptr,
                                 nullptr, nullptr, nullptr);   // put in front: the views refresh on this thread
    SendMessageW(main.Get(), WM_COMMAND, IDM_RATE_VERY_HIGH, 0);
    g_watchedList = main.List();
    HHOOK hook = SetWindowsHookExW(WH_CALLWNDPROC, CountCycles, nullptr, GetCurrentThreadId());
    ASSERT_TRUE(other && hook);

    std::mt19937 random(20261123);   // fixed: every run takes the same steps
    std::deque<lmvx_test::ChildProcess> children;
    for (int round = 0; round < kRounds; ++round) {
        if (children.size() < 6 && random() % 3 != 0) {
            children.emplace_back(L"sleep 60000");
        } else if (!children.empty()) {
            children.pop_front();   // ends it
        }
        SetForegroundWindow(random() % 2 ? main.Get() : other);
        if (const int rows = ListView_GetItemCount(main.List())) {
            const int row = static_cast<int>(random() % static_cast<unsigned>(rows));
            ListView_SetItemState(main.List(), row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
        }
        PostMessageW(main.Get(), WM_COMMAND, kSortCommands[random() % std::size(kSortCommands)], 0);

        const unsigned cyclesBefore = g_cyclesSeen;
        ASSERT_TRUE(PumpUntil([&] { return g_cyclesSeen >= cyclesBefore + 2; }, 30000))
            << "the refresh thread stopped in round " << round;
        ASSERT_TRUE(RowsAgreeWithTheirPids(main.List())) << "round " << round;
    }
    UnhookWindowsHookEx(hook);
    DestroyWindow(other);
}

}  // namespace
}  // namespace mainwnd_test
