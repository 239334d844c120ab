// The procedure the three detail panes of the Threads page share: bold headers, a light background, the
// icons of the thread buttons, and everything else handed to the page.
#include "common/owner_button.h"
#include "props/threads_page_parts.h"
#include "resource.h"
#include "wren.h"

namespace lmvx {

namespace {

BOOL OnInitPane(HWND pane) {
    for (int id : {IDC_THREAD_PERFORMANCE_HEADER, IDC_THREAD_START_HEADER, IDC_THREAD_ERROR_HEADER,
                   IDC_THREAD_TIMES_HEADER, IDC_THREAD_ID_TEXT, IDC_THREAD_CPU}) {
        if (GetDlgItem(pane, id)) wren::Embold(pane, id);
    }
    const std::pair<int, unsigned short> buttonIcons[] = {{IDM_THREAD_TERMINATE, IDI_TERMINATE_THREAD},
                                                          {IDM_THREAD_SUSPEND_RESUME, IDI_SUSPEND_THREAD}};
    for (const auto& [button, icon] : buttonIcons) {
        SendDlgItemMessageW(pane, button, WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(SmallSharedIcon(icon)));
    }
    return FALSE;
}

INT_PTR PaintLight(HDC dc) {
    SetBkColor(dc, GetSysColor(COLOR_BTNHIGHLIGHT));
    return reinterpret_cast<INT_PTR>(GetSysColorBrush(COLOR_BTNHIGHLIGHT));   // a system brush: never deleted
}

}  // namespace

INT_PTR CALLBACK ThreadPaneProc(HWND pane, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_INITDIALOG: return OnInitPane(pane);
    case WM_CTLCOLORDLG:
    case WM_CTLCOLORSTATIC: return PaintLight(reinterpret_cast<HDC>(wParam));
    case WM_COMMAND:
    case WM_NOTIFY: return SendMessageW(GetParent(pane), message, wParam, lParam);
    case WM_DRAWITEM: return DrawOwnerButton(pane, reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
    default: return FALSE;
    }
}

}  // namespace lmvx
