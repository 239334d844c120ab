#include "kobj/handle_list_view.h"

#include <unordered_map>

#include "app/shared_icons.h"
#include "common/unique_resource.h"
#include "finch.h"
#include "kobj/handle_type_table.h"

namespace lmvx::kobj {

std::unordered_map<unsigned, int> RowsByValue(HWND list) {
    std::unordered_map<unsigned, int> rows;
    const int count = static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0));
    for (int row = 0; row < count; ++row) rows.emplace(RowValue(list, row), row);
    return rows;
}

unsigned RowValue(HWND list, int row) {
    LVITEMW item{};
    item.mask = LVIF_PARAM;
    item.iItem = row;
    SendMessageW(list, LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
    return static_cast<unsigned>(item.lParam);
}

std::wstring RowText(HWND list, int row, int column) {
    wchar_t text[256] = {};
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = text;
    item.cchTextMax = 256;
    SendMessageW(list, LVM_GETITEMTEXTW, row, reinterpret_cast<LPARAM>(&item));
    return text;
}

unsigned SelectedRowValue(HWND list) {
    const int row = static_cast<int>(SendMessageW(list, LVM_GETSELECTIONMARK, 0, 0));
    return row < 0 ? 0 : RowValue(list, row);
}

RowAccess ListRows(HWND list) {
    return {[list] { return static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0)); },
            [list](int row) { return RowValue(list, row); },
            [list](int row) { SendMessageW(list, LVM_DELETEITEM, row, 0); }};
}

int InsertRow(HWND list, int position, unsigned value, int image, const wchar_t* text) {
    LVITEMW item{};
    item.mask = LVIF_TEXT | LVIF_PARAM | LVIF_IMAGE;
    item.iItem = position;
    item.lParam = static_cast<LPARAM>(value);
    item.iImage = image;
    item.pszText = const_cast<wchar_t*>(text);
    return static_cast<int>(SendMessageW(list, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item)));
}

namespace {

UniqueImageList BuildHandleTypeImageList() {
    UniqueImageList images(ImageList_Create(16, 16, ILC_COLOR32 | ILC_MASK, 1, 12));
    if (!images) return images;
    for (unsigned short iconId : kHandleImageIcons) ImageList_ReplaceIcon(images.Get(), -1, SharedIconById(iconId).small);
    return images;
}

}  // namespace

HIMAGELIST CreateHandleTypeImageList() {
    // Converting the eleven icons costs tens of milliseconds under Wine, on every window that opens: the
    // list is built once, and each caller gets a copy of its own to hand to a list view, which destroys it.
    static const UniqueImageList master = BuildHandleTypeImageList();
    return master ? ImageList_Duplicate(master.Get()) : nullptr;
}

void SetUpColumns(HWND list, const unsigned* textIds, const int* widths, int count) {
    SendMessageW(list, LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_FULLROWSELECT, LVS_EX_FULLROWSELECT);
    for (int i = 0; i < count; ++i) UIP_ListViewAddColumn(list, i, UIL_LangModule.GetLangString(textIds[i]), widths[i], 0);
    const int last = count - 1;
    SendMessageW(list, LVM_SETCOLUMNWIDTH, last, LVSCW_AUTOSIZE_USEHEADER);
    const int width = static_cast<int>(SendMessageW(list, LVM_GETCOLUMNWIDTH, last, 0));
    SendMessageW(list, LVM_SETCOLUMNWIDTH, last, width - 20);
}

namespace {

int CompareTexts(const std::wstring& a, const std::wstring& b) {
    const int result = CompareStringW(LOCALE_USER_DEFAULT, 0, a.c_str(), -1, b.c_str(), -1);
    return result == CSTR_LESS_THAN ? -1 : result == CSTR_GREATER_THAN ? 1 : 0;
}

using TextsByValue = std::unordered_map<unsigned, std::wstring>;

int CALLBACK CompareByText(LPARAM a, LPARAM b, LPARAM texts) {
    const auto& byValue = *reinterpret_cast<const TextsByValue*>(texts);
    return CompareTexts(byValue.at(static_cast<unsigned>(a)), byValue.at(static_cast<unsigned>(b)));
}

}  // namespace

void SortByFirstColumnIfNeeded(HWND list) {
    const int count = static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0));
    const auto pairOrder = [list](int a, int b) { return CompareTexts(RowText(list, a, 0), RowText(list, b, 0)); };
    if (FindRowOutOfOrder(count, pairOrder) < 0) return;
    // Sorted by item parameter (LVM_SORTITEMS): Wine hands LVM_SORTITEMSEX's callback stale positions.
    TextsByValue texts;
    for (int row = 0; row < count; ++row) texts[RowValue(list, row)] = RowText(list, row, 0);
    SendMessageW(list, LVM_SORTITEMS, reinterpret_cast<WPARAM>(&texts), reinterpret_cast<LPARAM>(CompareByText));
}

void CopyThroughEdit(HWND edit, const wchar_t* text) {
    SetWindowTextW(edit, text);
    SendMessageW(edit, EM_SETSEL, 0, -1);
    SendMessageW(edit, WM_COPY, 0, 0);
}

}  // namespace lmvx::kobj
