// What the files of the Threads page share: its messages, its panes and the thread it shows.
#pragma once
#include <windows.h>
#include <commctrl.h>

#include <string>

#include "kestrel.h"
#include "props/page_helpers.h"

namespace lmvx {

// The page sends this to itself to bring the list and the panes up to date.
inline constexpr UINT kThreadsRefreshMessage = WM_USER + 1;
inline constexpr UINT_PTR kThreadsRefreshTimer = 4000;
// While the page is hidden the timer only looks every 250 ms whether it is shown again.
inline constexpr UINT kThreadsHiddenIntervalMs = 250;

// The thread id at the thread list's selection mark; 0 when there is none.
unsigned ThreadAtSelectionMark(HWND page);
HWND ThreadsPane(HWND page, int paneId);
// The window of the window list's selected row; null when there is none.
HWND SelectedThreadWindow(HWND page);
// Writes a list cell only when its text differs, so that a refresh does not flicker.
void SetCellIfChanged(HWND list, int row, int column, const std::wstring& text);
// The row whose item data is the value; -1 when there is none.
int FindRowByData(HWND list, LPARAM data);
// Appends an empty row with the image and the item data; its index, or -1.
int AppendRowWithData(HWND list, int image, LPARAM data);
// Deletes every row whose item data keep() does not accept.
template <typename Keep>
void DeleteRowsUnless(HWND list, Keep keep) {
    for (int row = static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0)) - 1; row >= 0; --row) {
        LVITEMW item{};
        item.mask = LVIF_PARAM;
        item.iItem = row;
        if (SendMessageW(list, LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item)) && !keep(item.lParam)) {
            SendMessageW(list, LVM_DELETEITEM, static_cast<WPARAM>(row), 0);
        }
    }
}
HICON SmallSharedIcon(unsigned short id);

// Refresh of the list and the panes from the context's thread list.
void RefreshThreadsPage(HWND page);
// Refresh of the window list of the Windows pane for one thread.
void RefreshThreadWindows(HWND windowList, unsigned threadId);
// The panes' shared procedure.
INT_PTR CALLBACK ThreadPaneProc(HWND pane, UINT message, WPARAM wParam, LPARAM lParam);

// Commands of the page's menus and buttons; false when the id is none of them.
bool RunThreadCommand(HWND page, unsigned id);
// The pop-up menus of the thread list and the window list, at the cursor.
void ShowThreadMenu(HWND page, unsigned threadId);
void ShowWindowMenu(HWND page);

}  // namespace lmvx
