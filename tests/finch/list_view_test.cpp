// Adding list-view columns on a real list view and reading them back.
#include "platform/finch.h"
#include "libs/finch/unique_handle.h"

#include <commctrl.h>
#include <gtest/gtest.h>

#include <string>

namespace {

class ListViewColumnTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        INITCOMMONCONTROLSEX classes = {sizeof(classes), ICC_LISTVIEW_CLASSES};
        InitCommonControlsEx(&classes);
    }

    void SetUp() override {
        listView.Reset(CreateWindowExW(0, WC_LISTVIEWW, L"", WS_POPUP | LVS_REPORT, 0, 0, 400, 200, nullptr,
                                       nullptr, GetModuleHandleW(nullptr), nullptr));
        ASSERT_TRUE(listView);
    }

    struct Column {
        std::wstring text;
        int width;
        int format;
    };

    Column ReadColumn(int index) {
        wchar_t text[128] = {};
        LVCOLUMNW column = {};
        column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT;
        column.pszText = text;
        column.cchTextMax = 128;
        EXPECT_TRUE(SendMessageW(listView.Get(), LVM_GETCOLUMNW, index, reinterpret_cast<LPARAM>(&column)));
        return {text, column.cx, column.fmt & LVCFMT_JUSTIFYMASK};
    }

    int ColumnCount() {
        return static_cast<int>(SendMessageW(reinterpret_cast<HWND>(SendMessageW(listView.Get(), LVM_GETHEADER, 0, 0)),
                                             HDM_GETITEMCOUNT, 0, 0));
    }

    finch::UniqueWindow listView;
};

TEST_F(ListViewColumnTest, ColumnsKeepTextWidthAndAlignment) {
    EXPECT_EQ(0, UIP_ListViewAddColumn(listView.Get(), 0, L"Process", 150, 0));
    EXPECT_EQ(1, UIP_ListViewAddColumn(listView.Get(), 1, L"PID", 48, 1));
    EXPECT_EQ(2, UIP_ListViewAddColumn(listView.Get(), 2, L"Beschreibung", 210, 0));
    ASSERT_EQ(3, ColumnCount());

    const Column process = ReadColumn(0);
    EXPECT_EQ(L"Process", process.text);
    EXPECT_EQ(150, process.width);
    EXPECT_EQ(LVCFMT_LEFT, process.format);

    const Column pid = ReadColumn(1);
    EXPECT_EQ(L"PID", pid.text);
    EXPECT_EQ(48, pid.width);
    EXPECT_EQ(LVCFMT_RIGHT, pid.format);

    const Column description = ReadColumn(2);
    EXPECT_EQ(L"Beschreibung", description.text);
    EXPECT_EQ(210, description.width);
    EXPECT_EQ(LVCFMT_LEFT, description.format);
}

TEST_F(ListViewColumnTest, InsertingBeforeShiftsTheOthers) {
    UIP_ListViewAddColumn(listView.Get(), 0, L"CPU", 40, 1);
    EXPECT_EQ(0, UIP_ListViewAddColumn(listView.Get(), 0, L"Process", 150, 0));
    EXPECT_EQ(L"Process", ReadColumn(0).text);
    EXPECT_EQ(L"CPU", ReadColumn(1).text);
}

TEST(ListViewColumn, NoListViewGivesMinusOne) {
    EXPECT_EQ(-1, UIP_ListViewAddColumn(nullptr, 0, L"Process", 150, 0));
}

}  // namespace
