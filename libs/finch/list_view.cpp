// List-view column helper.
#include "platform/finch.h"

#include <commctrl.h>

int UIP_ListViewAddColumn(HWND listView, int index, const wchar_t* text, int width, int alignment) {
    // A message to no window answers 0, which would read as "inserted at 0".
    if (listView == nullptr || !IsWindow(listView)) return -1;
    LVCOLUMNW column = {};
    column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT | LVCF_SUBITEM;
    column.fmt = alignment == 1 ? LVCFMT_RIGHT : LVCFMT_LEFT;
    column.cx = width;
    column.pszText = const_cast<wchar_t*>(text != nullptr ? text : L"");
    column.iSubItem = index;
    return static_cast<int>(
        SendMessageW(listView, LVM_INSERTCOLUMNW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&column)));
}
