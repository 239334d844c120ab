// The list object on a real report list view, with given process rows.
#include <gtest/gtest.h>

#include <windows.h>
#include <commctrl.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <memory>
#include <numeric>
#include <thread>

#include "app/option_keys.h"
#include "common/unique_resource.h"
#include "command_ids.h"
#include "fake_process_source.h"
#include "message_counter.h"
#include "proclist/column_table.h"
#include "proclist/process_list_view.h"
#include "proclist/sort_order.h"
#include "proclist/text_compare.h"
#include "test_host.h"
#include "wren.h"

namespace proclist_test {
namespace {

using namespace lmvx_test;

using proclist::ProcessListView;
using proclist::SortState;
namespace options = lmvx::options;

class ProcessListViewTest : public ::testing::Test {
protected:
    void SetUp() override {
        auto owned = std::make_unique<FakeProcessSource>();
        source_ = owned.get();
        for (const wchar_t* icon : {IDI_APPLICATION, IDI_WARNING, IDI_ERROR}) {
            ImageList_AddIcon(images_.Get(), LoadIconW(nullptr, icon));   // shared system icons: nothing to free
        }
        source_->imageList = images_.Get();
        ASSERT_TRUE(list_.Attach(window_.List(), std::move(owned)));
    }

    // Rows show up in the reverse of the provider's order when nothing sorts them (each new row goes on top).
    void AddNumbered(std::initializer_list<unsigned> pids) {
        for (unsigned pid : pids) source_->Add(pid, L"proc.exe");
    }
    HWND ListView() const { return window_.List(); }
    std::vector<unsigned> Rows() const { return PidsInRowOrder(ListView()); }
    std::vector<int> Indents() const {
        std::vector<int> indents;
        for (int row = 0; row < ListView_GetItemCount(ListView()); ++row) indents.push_back(RowIndent(ListView(), row));
        return indents;
    }
    // Each row's cells are those of the process whose PID the row carries.
    void ExpectCellsMatchRowPids() const {
        for (int row = 0; row < ListView_GetItemCount(ListView()); ++row) {
            const unsigned pid = PidOfRow(ListView(), row);
            EXPECT_EQ(CellText(ListView(), row, proclist::kColumnProcessId), std::to_wstring(pid)) << "row " << row;
            const int index = source_->GetItemByPid(pid);
            ASSERT_GE(index, 0);
            EXPECT_EQ(CellText(ListView(), row, proclist::kColumnCpuUsage),
                      proclist::FormatCpuCell(source_->processes[index].values.cpuPercent, true))
                << "row " << row;
        }
    }

    ScopedTestApplication app_{L"LumivexProclistViewTest"};
    TestMainWindow window_{false};
    lmvx::UniqueImageList images_{ImageList_Create(16, 16, ILC_COLOR32 | ILC_MASK, 4, 0)};
    ProcessListView list_;
    FakeProcessSource* source_ = nullptr;
};

constexpr unsigned kUnsorted = 13;

// Attaching adds the thirteen columns in table order and sets exactly full-row select and header drag-drop.
TEST_F(ProcessListViewTest, AttachAddsTheColumnsAndStyles) {
    EXPECT_EQ(ListView_GetExtendedListViewStyle(ListView()),
              static_cast<DWORD>(LVS_EX_FULLROWSELECT | LVS_EX_HEADERDRAGDROP));
    EXPECT_EQ(ProcessListView::FromControl(ListView()), &list_);
    EXPECT_EQ(list_.GetSortState().mode, 0u);
    const wchar_t* headers[] = {L"Process",      L"CPU Usage",  L"I/O",         L"Memory Usage", L"Description",
                                L"Company Name", L"Path Name",  L"Process ID",  L"Start Time",   L"Username",
                                L"Handles",      L"USER Objects", L"GDI Objects"};
    HWND header = ListView_GetHeader(ListView());
    ASSERT_EQ(Header_GetItemCount(header), proclist::kColumnCount);
    const auto& columns = proclist::ProcessListColumns();
    for (int index = 0; index < proclist::kColumnCount; ++index) {
        SCOPED_TRACE(index);
        wchar_t text[64] = {};
        LVCOLUMNW column = {};
        column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT;
        column.pszText = text;
        column.cchTextMax = static_cast<int>(std::size(text));
        ASSERT_TRUE(ListView_GetColumn(ListView(), index, &column));
        EXPECT_STREQ(text, headers[index]);
        EXPECT_EQ(column.cx, columns[index].width);
        const bool right = columns[index].alignment == proclist::ColumnAlignment::Right;
        EXPECT_EQ(column.fmt & LVCFMT_JUSTIFYMASK, right ? LVCFMT_RIGHT : LVCFMT_LEFT);
    }
}

// The control draws from a copy of the provider's icons, taken on its own thread: the provider adds icons on
// the refresh thread, whose refresh runs while the control may be drawing.
TEST_F(ProcessListViewTest, IconsTheProviderAddsReachTheControlThroughItsOwnThread) {
    HIMAGELIST shown = ListView_GetImageList(ListView(), LVSIL_SMALL);
    ASSERT_NE(shown, images_.Get());
    EXPECT_EQ(ImageList_GetImageCount(shown), 3);
    ImageList_AddIcon(images_.Get(), LoadIconW(nullptr, IDI_QUESTION));
    source_->Add(700, L"icon.exe").imageIndex = 3;
    std::atomic<bool> done{false};
    std::thread refresh([&] { list_.Refresh(); done = true; });   // as the refresh thread does in front
    EXPECT_TRUE(lmvx_test::PumpUntil([&] { return done.load(); }, 60000));
    refresh.join();
    EXPECT_EQ(ImageList_GetImageCount(ListView_GetImageList(ListView(), LVSIL_SMALL)), 4);
    EXPECT_EQ(RowImage(ListView(), 0), 3);
    source_->Find(700)->imageIndex = 1;   // the row's image follows the provider
    list_.Refresh();
    EXPECT_EQ(RowImage(ListView(), 0), 1);
}

// Rows carry their PIDs and formatted cells; a refresh writes only the cells that changed and asks the control
// nothing about its rows; many new rows are filled with drawing paused once, a few are drawn as they come;
// BlankZero off shows an idle process's zero counters.
TEST_F(ProcessListViewTest, RowsShowTheirCellsAndARefreshWritesOnlyWhatChanged) {
    source_->Add(4100, L"busy.exe").values = {
        .imageName = L"busy.exe", .cpuPercent = 42, .ioDeltaBytes = 512, .memoryBytes = 3 * 1024 * 1024,
        .description = L"Busy worker", .companyName = L"Example Co", .pathName = L"C:\\tools\\busy.exe", .pid = 4100,
        .creationTime = {2024, 2, 0, 29, 23, 1, 2, 0}, .username = L"HOST\\user", .handleCount = 77};
    source_->Add(4200, L"idle.exe").values = {
        .imageName = L"idle.exe", .pid = 4200, .handleCount = 5, .userObjectCount = 2, .gdiObjectCount = 6};
    EXPECT_EQ(list_.Refresh(), 1);
    ASSERT_EQ(ListView_GetItemCount(ListView()), 2);
    const std::pair<unsigned, std::array<const wchar_t*, proclist::kColumnCount>> rows[] = {
        {4100, {L"busy.exe", L"42 %", L"0.5 KB/s", L"3072 KB", L"Busy worker", L"Example Co", L"C:\\tools\\busy.exe",
                L"4100", L"29/02/2024 23:01:02", L"HOST\\user", L"77", L"0", L"0"}},
        {4200, {L"idle.exe", L"", L"", L"", L"", L"", L"", L"4200", L"", L"", L"5", L"2", L"6"}},
    };
    for (const auto& [pid, cells] : rows) {
        const int row = RowOfPid(ListView(), pid);
        ASSERT_GE(row, 0);
        for (int column = 0; column < proclist::kColumnCount; ++column) {
            EXPECT_EQ(CellText(ListView(), row, column), cells[column]) << pid << " column " << column;
        }
    }

    MessageCounter writes(ListView(), LVM_SETITEMTEXTW);
    MessageCounter texts(ListView(), LVM_GETITEMTEXTW);
    MessageCounter count(ListView(), LVM_GETITEMCOUNT);
    MessageCounter reads(ListView(), LVM_GETITEMW);
    MessageCounter redraw(ListView(), WM_SETREDRAW);
    list_.Refresh();
    EXPECT_EQ(writes.Seen(), 0) << "nothing changed";
    source_->Find(4100)->values.handleCount = 78;
    list_.Refresh();
    EXPECT_EQ(writes.Seen(), 1);
    AddNumbered({40, 41, 42});
    list_.Refresh();
    EXPECT_EQ(texts.Seen() + count.Seen() + reads.Seen(), 0);
    EXPECT_EQ(redraw.Seen(), 0);
    for (unsigned pid = 100; pid < 140; ++pid) source_->Add(pid, L"burst.exe");
    list_.Refresh();
    EXPECT_EQ(redraw.Seen(), 2) << "off before the rows, on after them";
    EXPECT_EQ(ListView_GetItemCount(ListView()), 45);
    source_->Find(4100)->values.handleCount = 79;   // drawing is on again: no other pause
    list_.Refresh();
    EXPECT_EQ(redraw.Seen(), 2);
    EXPECT_EQ(CellText(ListView(), RowOfPid(ListView(), 4100), proclist::kColumnHandles), L"79");

    wren::regOptions.SetOptionBOOL(options::BlankZero.name, 0);
    list_.Refresh();
    const int idleRow = RowOfPid(ListView(), 4200);
    EXPECT_EQ(CellText(ListView(), idleRow, proclist::kColumnCpuUsage), L"0 %");
    EXPECT_EQ(CellText(ListView(), idleRow, proclist::kColumnIo), L"0 KB/s");
    EXPECT_EQ(CellText(ListView(), idleRow, proclist::kColumnMemoryUsage), L"0 KB");
}

TEST_F(ProcessListViewTest, TwoAdjacentEndedRowsLeaveOverTwoRefreshesAndASortMeanwhileWorks) {
    list_.SetSortState({kUnsorted, false});
    AddNumbered({10, 20, 30, 40});
    list_.Refresh();
    ASSERT_EQ(Rows(), (std::vector<unsigned>{40, 30, 20, 10}));
    source_->Remove(30);
    source_->Remove(20);
    ASSERT_TRUE(list_.OnSortCommand(IDM_SORT_PROCESS_ID));
    EXPECT_EQ(Rows(), (std::vector<unsigned>{10, 20, 40}));
    list_.Refresh();
    EXPECT_EQ(Rows(), (std::vector<unsigned>{10, 40}));
}

TEST_F(ProcessListViewTest, TreeModeIndentsByDepthAlsoReversedOtherModesDoNot) {
    list_.SetSortState({proclist::kSortProcessTree, false});
    const std::pair<unsigned, int> tree[] = {{100, 0}, {110, 1}, {111, 2}, {200, 0}};
    double position = 0;
    for (const auto& [pid, depth] : tree) {
        FakeProcess& process = source_->Add(pid, L"tree.exe");
        process.treeDepth = depth;
        process.treePosition = position++;
    }
    list_.Refresh();
    EXPECT_EQ(Rows(), (std::vector<unsigned>{100, 110, 111, 200}));
    EXPECT_EQ(Indents(), (std::vector<int>{0, 1, 2, 0}));
    ASSERT_TRUE(list_.OnSortCommand(IDM_SORT_REVERSE));
    EXPECT_EQ(Rows(), (std::vector<unsigned>{200, 111, 110, 100}));
    EXPECT_EQ(Indents(), (std::vector<int>{0, 2, 1, 0}));
    ASSERT_TRUE(list_.OnSortCommand(IDM_SORT_PROCESS_ID));   // keeps the reverse flag
    EXPECT_EQ(Rows(), (std::vector<unsigned>{200, 111, 110, 100}));
    EXPECT_EQ(Indents(), (std::vector<int>(4, 0)));
    ASSERT_TRUE(list_.OnSortCommand(IDM_SORT_REVERSE));
    EXPECT_EQ(Rows(), (std::vector<unsigned>{100, 110, 111, 200}));
    EXPECT_FALSE(list_.OnSortCommand(IDM_RATE_LOW));
}

// Names sort in the default locale's order; GDI objects by the provider's count, not the shown one.
TEST_F(ProcessListViewTest, NameAndGdiSortsUseTheLocaleOrderAndTheProvidersCount) {
    const wchar_t* names[] = {L"zeta.exe", L"Alpha.exe", L"alpha.exe", L"beta.exe", L"Beta.exe"};
    unsigned pid = 1;
    for (const wchar_t* name : names) source_->Add(pid++, name);
    ASSERT_TRUE(list_.OnSortCommand(IDM_SORT_PROCESS_NAME));
    std::vector<std::wstring> shown;
    for (int row = 0; row < ListView_GetItemCount(ListView()); ++row) shown.push_back(CellText(ListView(), row, 0));
    EXPECT_TRUE(std::is_sorted(shown.begin(), shown.end(), [](const std::wstring& a, const std::wstring& b) {
        return proclist::CompareTextDefaultLocale(a, b) < 0;
    })) << ::testing::PrintToString(shown);
    EXPECT_EQ(shown.back(), L"zeta.exe");

    source_->processes.clear();
    list_.SetSortState({proclist::kSortGdiObjects, false});
    source_->Add(13, L"many.exe").sortGdiObjects = 100;
    source_->Add(12, L"mid.exe").sortGdiObjects = 50;
    FakeProcess& few = source_->Add(11, L"few.exe");   // unsorted, the rows would show 11, 12, 13
    few.sortGdiObjects = 1;
    few.values.gdiObjectCount = 900;
    for (int refresh = 0; refresh < 3; ++refresh) list_.Refresh();   // ended rows may take more than one
    EXPECT_EQ(Rows(), (std::vector<unsigned>{13, 12, 11}));
}

// The sort submenu keeps its place and title when it is rebuilt; a header click selects the shifted mode and
// checks it, and the replaced submenu is destroyed.
TEST_F(ProcessListViewTest, HeaderClickSelectsTheShiftedModeAndChecksItInTheRebuiltSortMenu) {
    wchar_t before[64] = {};
    GetMenuStringW(GetSubMenu(GetMenu(window_.Get()), 1), 0, before, 64, MF_BYPOSITION);
    list_.UpdateSortMenu();
    wchar_t after[64] = {};
    GetMenuStringW(GetSubMenu(GetMenu(window_.Get()), 1), 0, after, 64, MF_BYPOSITION);
    EXPECT_STREQ(after, before);
    EXPECT_EQ(GetMenuItemCount(SortMenuOf(window_.Get())), 15);
    EXPECT_EQ(CheckedCommands(SortMenuOf(window_.Get())), (std::vector<UINT>{IDM_SORT_START_ORDER}));
    for (const auto& [pid, bytes] : {std::pair{10u, 3000u}, {20u, 1000u}, {30u, 2000u}, {40u, 500u}}) {
        source_->Add(pid, L"proc.exe").values.memoryBytes = bytes;
    }
    list_.SetSortState({proclist::kSortProcessTree, false});
    HMENU replaced = SortMenuOf(window_.Get());
    list_.OnHeaderClick(proclist::kColumnIo);
    EXPECT_EQ(list_.GetSortState(), (SortState{proclist::kSortMemoryUsage, false}));
    EXPECT_EQ(Rows(), (std::vector<unsigned>{10, 30, 20, 40}));
    EXPECT_EQ(CheckedCommands(SortMenuOf(window_.Get())), (std::vector<UINT>{IDM_SORT_MEMORY_USAGE}));
    EXPECT_FALSE(IsMenu(replaced)) << "the replaced submenu is destroyed";
}

// The sort state and the column order are restored from the option store and saved as the list shows them; only
// a stored block of exactly 52 bytes is taken as the column order; a stored mode 13 leaves the list unsorted.
TEST_F(ProcessListViewTest, SortStateAndColumnOrderAreRestoredAndSaved) {
    std::vector<int> order(proclist::kColumnCount), reversed(proclist::kColumnCount + 1, 0);
    std::iota(order.begin(), order.end(), 0);
    std::reverse_copy(order.begin(), order.end(), reversed.begin());
    wren::regOptions.SetOptionDWORD(options::TaskListSortMode.name, proclist::kSortUsername);
    wren::regOptions.SetOptionBOOL(options::TaskListSortReverse.name, 1);
    for (unsigned bytes : {48u, 56u, proclist::kColumnOrderBytes}) {
        SCOPED_TRACE(bytes);
        wren::regOptions.SetOptionBINARY(options::TaskListColumns.name, reversed.data(), bytes);
        list_.RestoreState();
        std::vector<int> shown(proclist::kColumnCount);
        ListView_GetColumnOrderArray(ListView(), proclist::kColumnCount, shown.data());
        std::vector<int> expected = order;
        if (bytes == proclist::kColumnOrderBytes) expected.assign(reversed.begin(), reversed.end() - 1);
        EXPECT_EQ(shown, expected);
    }
    EXPECT_EQ(list_.GetSortState(), (SortState{proclist::kSortUsername, true}));
    EXPECT_EQ(CheckedCommands(SortMenuOf(window_.Get())), (std::vector<UINT>{IDM_SORT_USERNAME, IDM_SORT_REVERSE}));

    std::swap(order[1], order[7]);
    ListView_SetColumnOrderArray(ListView(), proclist::kColumnCount, order.data());
    list_.SaveColumnOrder();
    list_.SetSortState({proclist::kSortHandleCount, false});
    list_.SaveSortState();
    std::vector<int> stored(proclist::kColumnCount + 1, -1);
    unsigned bytesRead = 0;
    wren::regOptions.GetOptionBINARY(options::TaskListColumns.name, stored.data(),
                                     static_cast<unsigned>(stored.size() * sizeof(int)), &bytesRead);
    EXPECT_EQ(bytesRead, proclist::kColumnOrderBytes);
    stored.resize(proclist::kColumnCount);
    EXPECT_EQ(stored, order);
    EXPECT_EQ(wren::regOptions.GetOptionDWORD(options::TaskListSortMode.name, 99), proclist::kSortHandleCount + 0u);
    EXPECT_EQ(wren::regOptions.GetOptionBOOL(options::TaskListSortReverse.name, 99), 0);

    wren::regOptions.SetOptionDWORD(options::TaskListSortMode.name, kUnsorted);
    AddNumbered({10, 20, 30, 40});
    list_.RestoreState();
    EXPECT_EQ(list_.GetSortState().mode, kUnsorted);
    EXPECT_EQ(Rows(), (std::vector<unsigned>{40, 30, 20, 10}));
    source_->Add(25, L"late.exe");
    list_.Refresh();
    EXPECT_EQ(Rows(), (std::vector<unsigned>{25, 40, 30, 20, 10}));
    EXPECT_TRUE(CheckedCommands(SortMenuOf(window_.Get())).empty());
}

// Across sorts with distinct and with equal keys, and after rows were changed behind the list's back. A refresh
// sorts only when a neighbouring pair other than the last is out of order (the pair check's bounds are tested
// on their own; this is the list using it).
TEST_F(ProcessListViewTest, CellsStayWithTheirRowsAndAMisplacedLastPairAloneIsNotSorted) {
    list_.SetSortState({proclist::kSortCpuUsage, false});
    const unsigned pids[] = {10, 20, 30, 40, 50};
    for (unsigned i = 0; i < 5; ++i) source_->Add(pids[i], L"busy.exe").values.cpuPercent = 10 + i;
    list_.Refresh();
    EXPECT_EQ(Rows(), (std::vector<unsigned>{50, 40, 30, 20, 10}));
    source_->Find(10)->values.cpuPercent = 13;   // now belongs above 30, but only the last pair shows it
    list_.Refresh();
    EXPECT_EQ(Rows(), (std::vector<unsigned>{50, 40, 30, 20, 10}));
    // Turn the order round: the rows move and the changed cells must be written to the moved rows.
    for (unsigned i = 0; i < 5; ++i) source_->Find(pids[i])->values.cpuPercent = 50 - i;
    list_.Refresh();
    EXPECT_EQ(Rows(), (std::vector<unsigned>{10, 20, 30, 40, 50}));
    source_->Find(30)->values.cpuPercent = 99;
    list_.Refresh();
    list_.Refresh();
    EXPECT_EQ(Rows(), (std::vector<unsigned>{30, 10, 20, 40, 50}));
    ExpectCellsMatchRowPids();

    source_->processes.clear();
    for (int refresh = 0; refresh < 3; ++refresh) list_.Refresh();
    ASSERT_EQ(ListView_GetItemCount(ListView()), 0);
    for (unsigned pid : {11u, 22u, 33u, 44u, 55u, 66u}) source_->Add(pid, L"idle.exe");
    source_->Find(11)->values.cpuPercent = 7;  // last row before the sort, so the order check moves it
    list_.Refresh();
    for (int round = 0; round < 3; ++round) {
        source_->Find(66)->values.cpuPercent = 20 + round;
        source_->Find(11)->values.cpuPercent = round;
        list_.Refresh();
        list_.Refresh();
        ExpectCellsMatchRowPids();
    }

    // Rows changed by another hand: a stranger added above the selection, whose PID stays right before and after
    // the refresh that reads the rows back and puts them right, a row deleted and a cell overwritten.
    list_.SetSortState({kUnsorted, false});
    EXPECT_FALSE(list_.SelectedPid().has_value());
    const unsigned selected = PidOfRow(ListView(), 1);
    ListView_SetItemState(ListView(), 1, LVIS_SELECTED, LVIS_SELECTED);
    wchar_t text[] = L"other.exe";
    const LVITEMW item{.mask = LVIF_TEXT | LVIF_PARAM, .pszText = text, .lParam = 999};
    ASSERT_EQ(ListView_InsertItem(ListView(), &item), 0);
    EXPECT_EQ(list_.SelectedPid(), selected);
    ListView_DeleteItem(ListView(), 6);
    ListView_SetItemText(ListView(), 1, proclist::kColumnProcessId, const_cast<wchar_t*>(L"stale"));
    list_.Refresh();
    EXPECT_EQ(list_.SelectedPid(), selected);
    EXPECT_EQ(ListView_GetItemCount(ListView()), 6);
    ExpectCellsMatchRowPids();
}

}  // namespace
}  // namespace proclist_test
