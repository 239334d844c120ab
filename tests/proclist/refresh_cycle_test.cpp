// The refresh thread, the rates and the main window's timers, and the list's rows, on a real window and the
// real provider.
#include <gtest/gtest.h>

#include <mutex>
#include <regex>
#include <optional>
#include <string>
#include <vector>

#include "app/option_keys.h"
#include "child_process.h"
#include "command_ids.h"
#include "dialog_ids.h"
#include "finch.h"
#include "proclist/column_table.h"
#include "proclist/kestrel_process_source.h"
#include "proclist/process_list_view.h"
#include "proclist/refresh_cycle.h"
#include "string_ids.h"
#include "test_host.h"
#include "wren.h"

namespace proclist_test {
namespace {

using namespace lmvx_test;

using proclist::RefreshCycle;
namespace options = lmvx::options;

// What the hooks saw, written by the refresh thread and read by the test.
struct HookLog {
    std::mutex lock;
    std::vector<std::string> steps;
    std::vector<DWORD> viewThreads;
    unsigned updatesSeenBySampler = 0;
    int cycles = 0;

    void Add(const char* step) {
        std::lock_guard guard(lock);
        steps.push_back(step);
    }
    int Cycles() {
        std::lock_guard guard(lock);
        return cycles;
    }
    size_t ViewRefreshes() {
        std::lock_guard guard(lock);
        return viewThreads.size();
    }
};

class CycleForwarder final : public WindowHandlers {
public:
    explicit CycleForwarder(RefreshCycle& cycle) : cycle_(cycle) {}
    void OnUser(WPARAM wParam) override { cycle_.OnRefreshMessage(wParam); }
    void OnTimer(UINT_PTR id) override { cycle_.OnTimer(id); }

private:
    RefreshCycle& cycle_;
};

class RefreshCycleTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(provider_.Init(), 1);
        window_.SetHandlers(&forwarder_);
    }
    void TearDown() override {
        cycle_.Stop();
        window_.SetHandlers(nullptr);
        provider_.Delete();
    }

    proclist::RefreshHooks LoggingHooks() {
        proclist::RefreshHooks hooks;
        hooks.sampleSystem = [this] {
            std::lock_guard guard(log_.lock);
            log_.steps.push_back("sample");
            log_.updatesSeenBySampler = provider_.GetUpdateCount();
            ++log_.cycles;
        };
        hooks.updatePerformancePopups = [this] { log_.Add("popups"); };
        hooks.updateSelectionView = [this](HWND list) {
            log_.Add(list == window_.List() ? "selection" : "selection-without-list");
        };
        hooks.refreshDetailsViews = [this](HWND) { log_.Add("details"); };
        hooks.updateStatusBar = [this] {
            std::lock_guard guard(log_.lock);
            log_.steps.push_back("status");
            log_.viewThreads.push_back(GetCurrentThreadId());
        };
        hooks.rebuildProcessMenu = [this] { log_.Add("menu"); };
        hooks.setSamplerInterval = [this](unsigned period, unsigned half) {
            samplerPeriods_.emplace_back(period, half);
        };
        hooks.detailsPanePeriodic = [this] { ++paneTicks_; };
        return hooks;
    }

    void StartCycle(unsigned periodMs) {
        cycle_.Init(window_.Get(), LoggingHooks());
        cycle_.SetRate(periodMs);
        ASSERT_TRUE(cycle_.Start());
    }
    // Runs the cycle every 100 ms until the views were refreshed twice, then stops it.
    void RunTwoViewRefreshes() {
        StartCycle(100);
        ASSERT_TRUE(PumpUntil([this] { return log_.ViewRefreshes() >= 2; }, 60000));
        cycle_.Stop();
    }

    ScopedTestApplication app_{L"LumivexProclistCycleTest"};
    kestrel::TL_PROCESSLIST provider_;
    TestMainWindow window_{true};
    RefreshCycle cycle_{provider_};
    CycleForwarder forwarder_{cycle_};
    HookLog log_;
    std::vector<std::pair<unsigned, unsigned>> samplerPeriods_;
    int paneTicks_ = 0;
};

TEST_F(RefreshCycleTest, CycleRunsItsStepsInOrderAfterTheProviderUpdate) {
    const unsigned updatesBefore = provider_.GetUpdateCount();
    RunTwoViewRefreshes();
    std::lock_guard guard(log_.lock);
    EXPECT_GT(log_.updatesSeenBySampler, updatesBefore);
    const std::vector<std::string> firstCycle(log_.steps.begin(), log_.steps.begin() + 6);
    EXPECT_EQ(firstCycle, (std::vector<std::string>{"sample", "popups", "selection", "details", "status", "menu"}));
}

// Out of front the UI thread refreshes the views (the list through WM_USER 4000). Every row is then a process
// of the snapshot; the test's own row shows its values through the cell rules; in tree mode a child is
// indented below its parent.
TEST_F(RefreshCycleTest, OutOfFrontTheUiThreadRefreshesTheViewsAndTheRowsShowTheSnapshot) {
    lmvx_test::ChildProcess child(L"sleep 60000");
    ASSERT_TRUE(child.Started());
    TestMainWindow other(true);
    SetForegroundWindow(other.Get());
    ASSERT_NE(GetForegroundWindow(), window_.Get());
    proclist::ProcessListView list;
    ASSERT_TRUE(list.Attach(window_.List(), provider_));
    RunTwoViewRefreshes();
    {
        std::lock_guard guard(log_.lock);
        for (DWORD thread : log_.viewThreads) EXPECT_EQ(thread, GetCurrentThreadId());
    }
    const HWND rows = window_.List();
    const unsigned pid = GetCurrentProcessId();
    ASSERT_GE(RowOfPid(rows, pid), 0) << "the process list was not refreshed through WM_USER 4000";
    provider_.Update();
    list.Refresh();
    ASSERT_EQ(ListView_GetItemCount(rows), provider_.GetItemCount());
    for (unsigned shown : PidsInRowOrder(rows)) EXPECT_GE(provider_.GetItemByPID(shown), 0) << shown;
    const int row = RowOfPid(rows, pid);
    const int index = provider_.GetItemByPID(pid);
    ASSERT_GE(index, 0);
    const auto cells = proclist::FormatRowCells(proclist::KestrelProcessSource(provider_).GetItemRowValues(index), true,
                                                UIL_LangModule.GetLangString(IDS_START_TIME_FORMAT));
    for (int column : {proclist::kColumnProcess, proclist::kColumnDescription, proclist::kColumnCompanyName,
                       proclist::kColumnPathName, proclist::kColumnProcessId, proclist::kColumnStartTime,
                       proclist::kColumnUsername}) {   // the counters of the running test may move between reads
        EXPECT_EQ(CellText(rows, row, column), cells[column]) << "column " << column;
    }
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    EXPECT_EQ(L"\\" + CellText(rows, row, proclist::kColumnProcess), std::wcsrchr(path, L'\\'));
    const std::wstring start = CellText(rows, row, proclist::kColumnStartTime);
    EXPECT_TRUE(std::regex_match(start, std::wregex(L"\\d\\d/\\d\\d/\\d{4} \\d\\d:\\d\\d:\\d\\d"))) << start;
    EXPECT_EQ(CellText(rows, row, proclist::kColumnProcessId), std::to_wstring(pid));
    EXPECT_NE(CellText(rows, row, proclist::kColumnHandles), L"");
    EXPECT_EQ(RowImage(rows, row), provider_.GetItemImageListIndex(index));

    list.SetSortState({proclist::kSortProcessTree, false});
    for (int refresh = 0; refresh < 2; ++refresh) {
        provider_.Update();
        list.Refresh();
    }
    const int parentRow = RowOfPid(rows, pid);
    const int childRow = RowOfPid(rows, child.Pid());
    ASSERT_GE(childRow, 0);
    EXPECT_EQ(RowIndent(rows, childRow), RowIndent(rows, parentRow) + 1);
    EXPECT_GT(childRow, parentRow);
}

TEST_F(RefreshCycleTest, InFrontTheRefreshThreadRefreshesTheViewsItself) {
    SetForegroundWindow(window_.Get());
    if (GetForegroundWindow() != window_.Get()) GTEST_SKIP() << "this display does not let the test take the foreground";
    RunTwoViewRefreshes();
    std::lock_guard guard(log_.lock);
    for (DWORD thread : log_.viewThreads) EXPECT_NE(thread, GetCurrentThreadId());
}

// A hidden window keeps sampling without view refreshes; the thread ends by itself with the main window.
TEST_F(RefreshCycleTest, HiddenWindowKeepsSamplingWithoutViewRefreshAndTheThreadEndsWithTheWindow) {
    ShowWindow(window_.Get(), SW_HIDE);
    StartCycle(100);
    ASSERT_TRUE(PumpUntil([this] { return log_.Cycles() >= 3; }, 60000));
    EXPECT_EQ(log_.ViewRefreshes(), 0u);
    window_.SetHandlers(nullptr);
    window_.Destroy();
    EXPECT_TRUE(PumpUntil([this] { return cycle_.HasThreadEnded(); }, 60000));
}

// The four timers: set by the start; the re-arm timer sets itself again, the pane's timer runs its hook and
// the spare timer does nothing.
TEST_F(RefreshCycleTest, StartSetsTheFourTimersAndEachDoesItsPart) {
    StartCycle(250);
    cycle_.OnTimer(proclist::kRearmTimer);
    cycle_.OnTimer(proclist::kDetailsPaneTimer);
    cycle_.OnTimer(proclist::kSpareTimer);
    EXPECT_EQ(paneTicks_, 1);
    for (UINT_PTR timer : {proclist::kRestoreHotKeyTimer, proclist::kRearmTimer, proclist::kSpareTimer,
                           proclist::kDetailsPaneTimer}) {
        EXPECT_TRUE(KillTimer(window_.Get(), timer)) << timer;
    }
}

// Only WM_USER with 4000 runs the view refresh; each rate command selects its period, tells the sampler and
// checks its rate in a rebuilt rate menu.
TEST_F(RefreshCycleTest, ViewRefreshMessageAndRateCommands) {
    cycle_.Init(window_.Get(), LoggingHooks());
    EXPECT_FALSE(cycle_.OnRefreshMessage(4001));
    EXPECT_EQ(log_.ViewRefreshes(), 0u);
    EXPECT_TRUE(cycle_.OnRefreshMessage(proclist::kViewRefreshRequest));
    EXPECT_EQ(log_.ViewRefreshes(), 1u);
    const std::pair<unsigned, unsigned> rates[] = {{IDM_RATE_VERY_LOW, 3000}, {IDM_RATE_LOW, 1000},
                                                   {IDM_RATE_MEDIUM, 500},    {IDM_RATE_HIGH, 250},
                                                   {IDM_RATE_VERY_HIGH, 100}};
    for (const auto& [command, period] : rates) {
        HMENU before = RateMenuOf(window_.Get());
        ASSERT_TRUE(cycle_.OnRateCommand(command));
        EXPECT_EQ(cycle_.GetPeriod(), period);
        EXPECT_EQ(samplerPeriods_.back(), (std::pair<unsigned, unsigned>{period, period / 2}));
        EXPECT_EQ(CheckedCommands(RateMenuOf(window_.Get())), (std::vector<UINT>{command}));
        EXPECT_EQ(GetMenuItemCount(RateMenuOf(window_.Get())), 5);
        EXPECT_FALSE(IsMenu(before)) << "the replaced submenu is destroyed";
    }
    EXPECT_FALSE(cycle_.OnRateCommand(IDM_SORT_REVERSE));
}

// A stored period (none: 1000) runs as stored, checks its rate when the table has it, and is saved again
// with 0 taken as 100.
TEST_F(RefreshCycleTest, StoredPeriodRunsChecksAndIsSavedAgain) {
    struct Case {
        std::optional<unsigned> stored;
        unsigned period;
        std::vector<UINT> checked;
        unsigned saved;
    };
    const Case cases[] = {{std::nullopt, 1000, {IDM_RATE_LOW}, 1000},
                          {0u, 0, {IDM_RATE_VERY_HIGH}, 100},
                          {2000u, 2000, {}, 2000}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.period);
        if (c.stored) wren::regOptions.SetOptionDWORD(options::UpdateInterval.name, *c.stored);   // unset first
        cycle_.Init(window_.Get(), LoggingHooks());
        cycle_.LoadRate();
        EXPECT_EQ(cycle_.GetPeriod(), c.period);
        EXPECT_EQ(samplerPeriods_.back(), (std::pair<unsigned, unsigned>{c.period, c.period / 2}));
        EXPECT_EQ(CheckedCommands(RateMenuOf(window_.Get())), c.checked);
        cycle_.SavePeriod();
        EXPECT_EQ(wren::regOptions.GetOptionDWORD(options::UpdateInterval.name, 7), c.saved);
    }
}

// Key states given by the test: which keys are down, and which were asked for.
std::vector<int> g_keysDown;
std::vector<int> g_keysAsked;
SHORT WINAPI FakeKeyState(int virtualKey) {
    g_keysAsked.push_back(virtualKey);
    for (int key : g_keysDown) {
        if (key == virtualKey) return static_cast<SHORT>(0x8000);
    }
    return 0;
}

TEST_F(RefreshCycleTest, RestoreHotKeyShowsAHiddenOrMinimisedWindow) {
    cycle_.Init(window_.Get(), LoggingHooks());
    cycle_.SetKeyStateReader(FakeKeyState);
    ShowWindow(window_.Get(), SW_HIDE);
    g_keysDown = {VK_MENU, VK_LCONTROL};
    cycle_.OnTimer(proclist::kRestoreHotKeyTimer);
    EXPECT_FALSE(IsWindowVisible(window_.Get())) << "F11 is not down";
    g_keysDown = {VK_MENU, VK_RCONTROL, VK_F11};
    cycle_.OnTimer(proclist::kRestoreHotKeyTimer);
    EXPECT_FALSE(IsWindowVisible(window_.Get())) << "only the left Ctrl key counts";
    g_keysDown = {VK_MENU, VK_LCONTROL, VK_F11};
    cycle_.OnTimer(proclist::kRestoreHotKeyTimer);
    EXPECT_TRUE(IsWindowVisible(window_.Get()));
    // A window minimised and then hidden comes back restored.
    ShowWindow(window_.Get(), SW_MINIMIZE);
    ShowWindow(window_.Get(), SW_HIDE);
    cycle_.OnTimer(proclist::kRestoreHotKeyTimer);
    EXPECT_TRUE(IsWindowVisible(window_.Get()));
    EXPECT_FALSE(IsIconic(window_.Get()));
}

}  // namespace
}  // namespace proclist_test
