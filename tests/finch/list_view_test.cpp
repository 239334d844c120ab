// Adding list-view columns on a real list view and reading them back.
#include "platform/finch.h"
#include "libs/finch/unique_handle.h"

#include <commctrl.h>
#include <gtest/gtest.h>

#include <string>

namespace {

struct Column {
    std::wstring text;
    int width;
    int format;
    bool operator==(const Column&) const = default;
};

Column ReadColumn(HWND listView, int index) {
    wchar_t text[128] = {};
    LVCOLUMNW column = {};
    column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT;
    column.pszText = text;
    column.cchTextMax = 128;
    EXPECT_TRUE(SendMessageW(listView, LVM_GETCOLUMNW, index, reinterpret_cast<LPARAM>(&column)));
    return {text, column.cx, column.fmt & LVCFMT_JUSTIFYMASK};
}

// Each column keeps its text, width and alignment (1: right); one inserted before the others shifts them;
// without a list view there is no column.
TEST(ListViewColumn, KeepsTextWidthAndAlignmentAtItsPlace) {
    INITCOMMONCONTROLSEX classes = {sizeof(classes), ICC_LISTVIEW_CLASSES};
    InitCommonControlsEx(&classes);
    finch::UniqueWindow listView(CreateWindowExW(0, WC_LISTVIEWW, L"", WS_POPUP | LVS_REPORT, 0, 0, 400, 200, nullptr,
                                                 nullptr, GetModuleHandleW(nullptr), nullptr));
    ASSERT_TRUE(listView);
    EXPECT_EQ(0, UIP_ListViewAddColumn(listView.Get(), 0, L"CPU", 40, 1));
    EXPECT_EQ(0, UIP_ListViewAddColumn(listView.Get(), 0, L"Process", 150, 0));
    EXPECT_EQ(2, UIP_ListViewAddColumn(listView.Get(), 2, L"Beschreibung", 210, 0));
    HWND header = reinterpret_cast<HWND>(SendMessageW(listView.Get(), LVM_GETHEADER, 0, 0));
    ASSERT_EQ(3, SendMessageW(header, HDM_GETITEMCOUNT, 0, 0));
    EXPECT_EQ(ReadColumn(listView.Get(), 0), (Column{L"Process", 150, LVCFMT_LEFT}));
    EXPECT_EQ(ReadColumn(listView.Get(), 1), (Column{L"CPU", 40, LVCFMT_RIGHT}));
    EXPECT_EQ(ReadColumn(listView.Get(), 2), (Column{L"Beschreibung", 210, LVCFMT_LEFT}));
    EXPECT_EQ(-1, UIP_ListViewAddColumn(nullptr, 0, L"Process", 150, 0));
}

}  // namespace
