// Dialog texts are compared first (an equal text causes no WM_SETTEXT); list cells are written as given.
#include <gtest/gtest.h>

#include <string>

#include "test_windows.h"
#include "wren.h"

namespace {

constexpr int kEditId = 100;

std::wstring TextOf(HWND window) {
    std::wstring text(static_cast<size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(static_cast<size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

class ItemText : public ::testing::Test {
protected:
    UniqueWindow parent_ = CreateTopLevel(0, 0, 400, 300);
    HWND edit_ = CreateChild(parent_.get(), L"EDIT", kEditId, ES_AUTOHSCROLL, L"4 Processes");
};

// An equal text is not written again, however long (around the length that one short read covers, and far
// beyond it), nor an empty one; a different one is written once; null clears; a missing control fails.
TEST_F(ItemText, EqualTextIsNotWrittenAgainADifferentOneOnceAndAMissingControlFails) {
    for (size_t length : {11u, 510u, 511u, 512u, 513u, 2000u, 0u}) {
        const std::wstring text(length, L'x');
        SetWindowTextW(edit_, text.c_str());   // the control's own text, not one the helper wrote
        MessageCounter setText(edit_, WM_SETTEXT);
        EXPECT_EQ(wren::SetDlgItemTextW(parent_.get(), kEditId, text.c_str()), 1);
        EXPECT_EQ(setText.Seen(), 0) << length;
        EXPECT_EQ(wren::SetDlgItemTextW(parent_.get(), kEditId, (text + L"y").c_str()), 1);
        EXPECT_EQ(setText.Seen(), 1) << length;
        EXPECT_EQ(TextOf(edit_), text + L"y") << length;
    }
    EXPECT_EQ(wren::SetDlgItemTextW(parent_.get(), kEditId, nullptr), 1);
    EXPECT_EQ(TextOf(edit_), L"");
    EXPECT_EQ(wren::SetDlgItemTextW(parent_.get(), kEditId + 1, L"text"), 0);
}

TEST_F(ItemText, ListViewCellsAreWrittenWholeAtEveryCallAndAMissingRowFails) {
    INITCOMMONCONTROLSEX controls{sizeof(controls), ICC_LISTVIEW_CLASSES};
    InitCommonControlsEx(&controls);
    HWND listView = CreateChild(parent_.get(), WC_LISTVIEWW, 5001, LVS_REPORT, L"");
    ASSERT_NE(listView, nullptr);
    LVCOLUMNW header{LVCF_WIDTH, 0, 100};
    ListView_InsertColumn(listView, 0, &header);
    ListView_InsertColumn(listView, 1, &header);
    LVITEMW row{LVIF_TEXT, 0, 0, 0, 0, const_cast<wchar_t*>(L"explorer.exe")};
    ASSERT_EQ(ListView_InsertItem(listView, &row), 0);
    ListView_SetItemText(listView, 0, 1, const_cast<wchar_t*>(L"12,345 K"));
    const auto Cell = [&](int column) {
        wchar_t text[4096] = {};
        ListView_GetItemText(listView, 0, column, text, 4096);
        return std::wstring(text);
    };
    // The caller keeps its own copy of the cells and decides what changed: an equal text is written too.
    MessageCounter setItemText(listView, LVM_SETITEMTEXTW);
    MessageCounter getItemText(listView, LVM_GETITEMTEXTW);
    EXPECT_EQ(wren::ListViewSetItemText(listView, 0, 1, L"12,345 K"), 1);
    EXPECT_EQ(wren::ListViewSetItemText(listView, 0, 1, L"12,346 K"), 1);
    EXPECT_EQ(setItemText.Seen(), 2);
    EXPECT_EQ(getItemText.Seen(), 0) << "no read-back";
    EXPECT_EQ(Cell(1), L"12,346 K");
    EXPECT_EQ(Cell(0), L"explorer.exe") << "other cells untouched";
    const std::wstring path = L"C:\\" + std::wstring(700, L'p') + L"\\app.exe";   // long texts are written whole
    EXPECT_EQ(wren::ListViewSetItemText(listView, 0, 1, path.c_str()), 1);
    EXPECT_EQ(Cell(1), path);
    EXPECT_EQ(wren::ListViewSetItemText(listView, 0, 1, nullptr), 1);
    EXPECT_EQ(Cell(1), L"");
    EXPECT_EQ(wren::ListViewSetItemText(listView, 5, 0, L"x"), 0) << "a row that does not exist";
}

}  // namespace
