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

class DialogItemText : public ::testing::Test {
protected:
    UniqueWindow parent_ = CreateTopLevel(0, 0, 400, 300);
    HWND edit_ = CreateChild(parent_.get(), L"EDIT", kEditId, ES_AUTOHSCROLL, L"4 Processes");
};

TEST_F(DialogItemText, EqualTextIsNotWrittenAgainADifferentOneOnceAndAMissingControlFails) {
    MessageCounter setText(edit_, WM_SETTEXT);
    EXPECT_EQ(wren::SetDlgItemTextW(parent_.get(), kEditId, L"4 Processes"), 1);
    EXPECT_EQ(setText.Seen(), 0);
    EXPECT_EQ(wren::SetDlgItemTextW(parent_.get(), kEditId, L"5 Processes"), 1);
    EXPECT_EQ(setText.Seen(), 1);
    EXPECT_EQ(TextOf(edit_), L"5 Processes");
    EXPECT_EQ(wren::SetDlgItemTextW(parent_.get(), kEditId + 1, L"text"), 0);
}

TEST_F(DialogItemText, LongEqualTextIsComparedInFull) {
    // Around the length that one short read covers, and far beyond it.
    for (size_t length : {510u, 511u, 512u, 513u, 2000u}) {
        const std::wstring longText(length, L'x');
        wren::SetDlgItemTextW(parent_.get(), kEditId, longText.c_str());
        MessageCounter setText(edit_, WM_SETTEXT);
        wren::SetDlgItemTextW(parent_.get(), kEditId, longText.c_str());
        EXPECT_EQ(setText.Seen(), 0) << length;
        wren::SetDlgItemTextW(parent_.get(), kEditId, (longText + L"y").c_str());
        EXPECT_EQ(setText.Seen(), 1) << length;
        EXPECT_EQ(TextOf(edit_), longText + L"y") << length;
    }
}

TEST_F(DialogItemText, EmptyAndNullTextClearTheControl) {
    EXPECT_EQ(wren::SetDlgItemTextW(parent_.get(), kEditId, nullptr), 1);
    EXPECT_EQ(TextOf(edit_), L"");
    MessageCounter setText(edit_, WM_SETTEXT);
    wren::SetDlgItemTextW(parent_.get(), kEditId, L"");
    EXPECT_EQ(setText.Seen(), 0);
}

class ListViewText : public ::testing::Test {
protected:
    void SetUp() override {
        INITCOMMONCONTROLSEX controls{sizeof(controls), ICC_LISTVIEW_CLASSES};
        InitCommonControlsEx(&controls);
        listView_ = CreateChild(parent_.get(), WC_LISTVIEWW, 5001, LVS_REPORT, L"");
        ASSERT_NE(listView_, nullptr);
        for (int column = 0; column < 2; ++column) {
            LVCOLUMNW header{};
            header.mask = LVCF_WIDTH;
            header.cx = 100;
            ListView_InsertColumn(listView_, column, &header);
        }
        LVITEMW row{};
        row.mask = LVIF_TEXT;
        row.pszText = const_cast<wchar_t*>(L"explorer.exe");
        ASSERT_EQ(ListView_InsertItem(listView_, &row), 0);
        ListView_SetItemText(listView_, 0, 1, const_cast<wchar_t*>(L"12,345 K"));
    }

    std::wstring Cell(int column) const {
        wchar_t text[4096] = {};
        ListView_GetItemText(listView_, 0, column, text, 4096);
        return text;
    }

    UniqueWindow parent_ = CreateTopLevel(0, 0, 400, 300);
    HWND listView_ = nullptr;
};

TEST_F(ListViewText, EveryCallWritesTheCellOnceWholeAndAMissingRowFails) {
    // The caller keeps its own copy of the cells and decides what changed: an equal text is written too.
    MessageCounter setItemText(listView_, LVM_SETITEMTEXTW);
    MessageCounter getItemText(listView_, LVM_GETITEMTEXTW);
    EXPECT_EQ(wren::ListViewSetItemText(listView_, 0, 1, L"12,345 K"), 1);
    EXPECT_EQ(wren::ListViewSetItemText(listView_, 0, 1, L"12,346 K"), 1);
    EXPECT_EQ(setItemText.Seen(), 2);
    EXPECT_EQ(getItemText.Seen(), 0) << "no read-back";
    EXPECT_EQ(Cell(1), L"12,346 K");
    EXPECT_EQ(Cell(0), L"explorer.exe") << "other cells untouched";
    const std::wstring path = L"C:\\" + std::wstring(700, L'p') + L"\\app.exe";   // long texts are written whole
    EXPECT_EQ(wren::ListViewSetItemText(listView_, 0, 1, path.c_str()), 1);
    EXPECT_EQ(Cell(1), path);
    EXPECT_EQ(wren::ListViewSetItemText(listView_, 0, 1, nullptr), 1);
    EXPECT_EQ(Cell(1), L"");
    EXPECT_EQ(wren::ListViewSetItemText(listView_, 5, 0, L"x"), 0) << "a row that does not exist";
}

}  // namespace
