// The real main window under load for a bounded number of rounds: refreshes with the window in front (on
// the refresh thread) and behind (on this, the UI thread), selection changes, sort changes, and processes
// starting and ending. After every round the refresh thread must have gone on cycling and the rows must
// agree with their item data. LMVX_STRESS_ROUNDS sets the number of rounds (default 60).
#include <gtest/gtest.h>
#include <windows.h>
#include <commctrl.h>

#include <cstdlib>
#include <deque>
#include <random>
#include <set>
#include <string>

#include "child_process.h"
#include "hosted_main_window.h"
#include "resource.h"

namespace mainwnd_test {
namespace {

constexpr DWORD kCycleWaitMs = 30000;
constexpr size_t kMostChildren = 6;
constexpr unsigned kSortCommands[] = {IDM_SORT_PROCESS_NAME, IDM_SORT_PROCESS_ID, IDM_SORT_CPU_USAGE,
                                      IDM_SORT_PROCESS_TREE, IDM_SORT_REVERSE,    IDM_SORT_START_ORDER,
                                      IDM_SORT_HANDLE_COUNT};

// Every look of the refresh thread at the list's selection mark is one cycle; it looks in front and behind.
thread_local HWND g_watchedList = nullptr;
thread_local unsigned g_cyclesSeen = 0;

LRESULT CALLBACK CountCycles(int code, WPARAM wParam, LPARAM lParam) {
    const auto* message = reinterpret_cast<const CWPSTRUCT*>(lParam);
    if (code == HC_ACTION && message->hwnd == g_watchedList && message->message == LVM_GETSELECTIONMARK) {
        ++g_cyclesSeen;
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

std::wstring CellText(HWND list, int row, int column) {
    wchar_t text[64] = {};
    ListView_GetItemText(list, row, column, text, 64);
    return text;
}

// Rows carry distinct PIDs, and a row's process-id cell is either not yet written or its own PID.
testing::AssertionResult RowsAgreeWithTheirPids(HWND list) {
    std::set<LPARAM> pids;
    for (int row = 0; row < ListView_GetItemCount(list); ++row) {
        LVITEMW item{};
        item.mask = LVIF_PARAM;
        item.iItem = row;
        if (!ListView_GetItem(list, &item)) return testing::AssertionFailure() << "row " << row << " unreadable";
        if (!pids.insert(item.lParam).second) return testing::AssertionFailure() << "PID " << item.lParam << " twice";
        const std::wstring pidCell = CellText(list, row, 7);
        if (!pidCell.empty() && pidCell != std::to_wstring(item.lParam)) {
            return testing::AssertionFailure() << "row of PID " << item.lParam << " shows PID cell "
                                               << std::string(pidCell.begin(), pidCell.end());
        }
    }
    return testing::AssertionSuccess();
}

int RoundCount() {
    const char* text = std::getenv("LMVX_STRESS_ROUNDS");
    const int rounds = text ? std::atoi(text) : 0;
    return rounds > 0 ? rounds : 60;
}

TEST(RefreshStress, RowsStayConsistentAndTheRefreshGoesOnUnderLoad) {
    ScopedHostedProgram program(L"LumivexRefreshStressTest");
    HostedMainWindow main;
    ASSERT_NE(main.Get(), nullptr);
    // Another window of this thread to put in front, so that the views refresh on this thread too.
    HWND other = CreateWindowExW(0, L"STATIC", L"other", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 200, 100, nullptr,
                                 nullptr, nullptr, nullptr);
    ASSERT_NE(other, nullptr);
    SendMessageW(main.Get(), WM_COMMAND, IDM_RATE_VERY_HIGH, 0);
    g_watchedList = main.List();
    g_cyclesSeen = 0;
    HHOOK hook = SetWindowsHookExW(WH_CALLWNDPROC, CountCycles, nullptr, GetCurrentThreadId());
    ASSERT_NE(hook, nullptr);

    std::mt19937 random(20261123);   // fixed: every run does the same steps
    std::deque<lmvx_test::ChildProcess> children;
    const int rounds = RoundCount();
    for (int round = 0; round < rounds; ++round) {
        if (children.size() < kMostChildren && random() % 3 != 0) {
            children.emplace_back(L"sleep 60000");
        } else if (!children.empty()) {
            children.pop_front();   // ends it
        }
        SetForegroundWindow(random() % 2 ? main.Get() : other);
        const int rows = ListView_GetItemCount(main.List());
        if (rows > 0) {
            const int row = static_cast<int>(random() % static_cast<unsigned>(rows));
            ListView_SetItemState(main.List(), row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
        }
        PostMessageW(main.Get(), WM_COMMAND, kSortCommands[random() % std::size(kSortCommands)], 0);

        const unsigned cyclesBefore = g_cyclesSeen;
        ASSERT_TRUE(PumpUntil([&] { return g_cyclesSeen >= cyclesBefore + 2; }, kCycleWaitMs))
            << "the refresh thread stopped in round " << round;
        ASSERT_TRUE(RowsAgreeWithTheirPids(main.List())) << "round " << round;
    }
    UnhookWindowsHookEx(hook);
    DestroyWindow(other);
}

}  // namespace
}  // namespace mainwnd_test
