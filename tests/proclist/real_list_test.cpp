// The list object in the main window's own dialog (template 129) with the real process-data provider.
#include <gtest/gtest.h>

#include <windows.h>
#include <commctrl.h>

#include <cwctype>
#include <string>

#include "child_process.h"
#include "dialog_ids.h"
#include "string_ids.h"
#include "finch.h"
#include "proclist/column_table.h"
#include "proclist/kestrel_process_source.h"
#include "proclist/process_list_view.h"
#include "test_environment.h"

namespace proclist_test {
namespace {

INT_PTR CALLBACK PlainDialogProc(HWND, UINT message, WPARAM, LPARAM) {
    return message == WM_INITDIALOG;
}

std::wstring OwnFileName() {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    const std::wstring full(path);
    return full.substr(full.find_last_of(L"\\/") + 1);
}

bool LooksLikeStartTime(const std::wstring& text) {
    // dd/mm/yyyy hh:mm:ss
    const std::wstring shape = L"00/00/0000 00:00:00";
    if (text.size() != shape.size()) return false;
    for (size_t i = 0; i < shape.size(); ++i) {
        if (shape[i] == L'0' ? !std::iswdigit(text[i]) : text[i] != shape[i]) return false;
    }
    return true;
}

class RealListTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(provider_.Init(), 1);
        dialog_ = UIL_LangModule.LoadDialogParam(IDD_MAIN, nullptr, PlainDialogProc, 0);
        ASSERT_NE(dialog_, nullptr);
        list_ = GetDlgItem(dialog_, IDC_PROCESS_LIST);
        ASSERT_NE(list_, nullptr);
        ShowWindow(dialog_, SW_SHOW);
        ASSERT_TRUE(view_.Attach(list_, provider_));
    }
    void TearDown() override {
        if (dialog_) DestroyWindow(dialog_);
        provider_.Delete();
    }
    void UpdateAndRefresh() {
        provider_.Update();
        view_.Refresh();
    }

    ScopedTestApplication app_{L"LumivexProclistRealTest"};
    kestrel::TL_PROCESSLIST provider_;
    HWND dialog_ = nullptr;
    HWND list_ = nullptr;
    proclist::ProcessListView view_;
};

// Every row is a process of the snapshot; the test's own row carries its PID and its values through the cell
// rules; in tree mode a child is indented below its parent.
TEST_F(RealListTest, RowsShowTheSnapshotWithFormattedTextsAndTheTree) {
    lmvx_test::ChildProcess child(L"sleep 60000");
    ASSERT_TRUE(child.Started());
    UpdateAndRefresh();
    ASSERT_EQ(ListView_GetItemCount(list_), provider_.GetItemCount());
    for (unsigned pid : PidsInRowOrder(list_)) EXPECT_GE(provider_.GetItemByPID(pid), 0) << pid;
    const unsigned pid = GetCurrentProcessId();
    const int row = RowOfPid(list_, pid);
    ASSERT_GE(row, 0);
    EXPECT_EQ(PidOfRow(list_, row), pid);
    EXPECT_EQ(CellText(list_, row, proclist::kColumnProcess), OwnFileName());
    EXPECT_EQ(CellText(list_, row, proclist::kColumnProcessId), std::to_wstring(pid));
    EXPECT_TRUE(LooksLikeStartTime(CellText(list_, row, proclist::kColumnStartTime)))
        << ::testing::PrintToString(CellText(list_, row, proclist::kColumnStartTime));
    EXPECT_NE(CellText(list_, row, proclist::kColumnHandles), L"");

    // Every cell shows the provider's values through the cell rules.
    const int index = provider_.GetItemByPID(pid);
    ASSERT_GE(index, 0);
    const proclist::KestrelProcessSource source(provider_);
    const auto cells = proclist::FormatRowCells(source.GetItemRowValues(index), true,
                                                UIL_LangModule.GetLangString(IDS_START_TIME_FORMAT));
    for (int column = 0; column < proclist::kColumnCount; ++column) {
        if (column == proclist::kColumnCpuUsage || column == proclist::kColumnMemoryUsage ||
            column == proclist::kColumnIo || column == proclist::kColumnHandles ||
            column == proclist::kColumnGdiObjects || column == proclist::kColumnUserObjects) {
            continue;  // counters of the running test may move between the two reads
        }
        EXPECT_EQ(CellText(list_, row, column), cells[column]) << "column " << column;
    }
    EXPECT_EQ(RowImage(list_, row), provider_.GetItemImageListIndex(index));

    view_.SetSortState({proclist::kSortProcessTree, false});
    UpdateAndRefresh();
    UpdateAndRefresh();
    const int parentRow = RowOfPid(list_, GetCurrentProcessId());
    const int childRow = RowOfPid(list_, child.Pid());
    ASSERT_GE(parentRow, 0);
    ASSERT_GE(childRow, 0);
    EXPECT_EQ(RowIndent(list_, childRow), RowIndent(list_, parentRow) + 1);
    EXPECT_GT(childRow, parentRow);
}

}  // namespace
}  // namespace proclist_test
