// List-view work shared by the Kernel Objects dialog and the Handles and Files pages: rows found by their
// handle value, the type image list, columns, the neighbour sort check and copying through a hidden edit.
#pragma once
#include <windows.h>
#include <commctrl.h>

#include <string>
#include <unordered_map>

#include "kobj/list_passes.h"

namespace lmvx::kobj {

// Every row by its handle value, read in one pass: a refresh of thousands of handles looks rows up with it
// instead of searching the list once per handle.
std::unordered_map<unsigned, int> RowsByValue(HWND list);
unsigned RowValue(HWND list, int row);
// The text of a cell, at most 255 characters.
std::wstring RowText(HWND list, int row, int column);
// The handle value of the row at the selection mark; 0 when there is none.
unsigned SelectedRowValue(HWND list);
RowAccess ListRows(HWND list);

// Inserts a row with the value as item parameter and returns its position.
int InsertRow(HWND list, int position, unsigned value, int image, const wchar_t* text);

// The eleven type icons (16 x 16, 32-bit colour) in the order of kHandleImageIcons; the caller owns it.
HIMAGELIST CreateHandleTypeImageList();

// Full-row selection and the columns (width 0 ends the list); the last column is then sized to its header
// and narrowed by 20 pixels.
void SetUpColumns(HWND list, const unsigned* textIds, const int* widths, int count);

// The refresh's sort: when a neighbouring pair (checked as FindRowOutOfOrder says) is out of order by its
// first-column texts (CompareStringW, default locale, no flags), sorts the whole list by them.
void SortByFirstColumnIfNeeded(HWND list);

// Puts the text on the clipboard through a hidden edit control (select all, WM_COPY).
void CopyThroughEdit(HWND edit, const wchar_t* text);

// The handle value as the lists keep it: cut to 32 bits.
inline unsigned HandleKey(const void* remoteHandle) {
    return static_cast<unsigned>(reinterpret_cast<ULONG_PTR>(remoteHandle));
}

}  // namespace lmvx::kobj
