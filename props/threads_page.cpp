#include "props/threads_page.h"

#include <commctrl.h>
#include <windowsx.h>

#include <memory>

#include "app/shared_icons.h"
#include "common/owner_button.h"
#include "finch.h"
#include "props/call_stack_dialog.h"
#include "props/properties_context.h"
#include "props/threads_page_parts.h"
#include "resource.h"
#include "wren.h"

namespace lmvx {

namespace {

struct PaneTemplate {
    unsigned dialogId;
    int paneId;
    int buttonId;
};

constexpr PaneTemplate kPanes[] = {
    {IDD_THREAD_PANE_PERFORMANCE, IDC_THREADS_PANE_PERFORMANCE, IDC_THREADS_SHOW_PERFORMANCE},
    {IDD_THREAD_PANE_MODULE, IDC_THREADS_PANE_MODULE, IDC_THREADS_SHOW_MODULE},
    {IDD_THREAD_PANE_WINDOWS, IDC_THREADS_PANE_WINDOWS, IDC_THREADS_SHOW_WINDOWS},
};

// Where the panes sit on the page, in dialog units: under the three pane buttons.
constexpr RECT kPaneArea = {7, 142, 308, 215};

HIMAGELIST CreateSmallImageList(int initial, int grow, unsigned short firstIcon) {
    HIMAGELIST images = ImageList_Create(16, 16, ILC_COLOR32 | ILC_MASK, initial, grow);
    if (images) ImageList_AddIcon(images, SmallSharedIcon(firstIcon));
    return images;
}

void SetUpThreadList(HWND page) {
    HWND list = GetDlgItem(page, IDC_THREADS_LIST);
    ListView_SetExtendedListViewStyle(list, LVS_EX_FULLROWSELECT);
    UIP_ListViewAddColumn(list, 0, Text(IDS_COLUMN_THREAD_ID), 65, 1);
    UIP_ListViewAddColumn(list, 1, Text(IDS_COLUMN_CPU_USAGE), 70, 1);
    UIP_ListViewAddColumn(list, 2, Text(IDS_COLUMN_START_ADDRESS), 290, 0);
    // The list view destroys its image lists with itself.
    ListView_SetImageList(list, CreateSmallImageList(1, 1, IDI_THREAD), LVSIL_SMALL);
}

void SetUpWindowList(HWND windowList) {
    ListView_SetExtendedListViewStyle(windowList, LVS_EX_FULLROWSELECT);
    UIP_ListViewAddColumn(windowList, 0, Text(IDS_COLUMN_WINDOW_TITLE), 345, 0);
    UIP_ListViewAddColumn(windowList, 1, Text(IDS_COLUMN_HANDLE_NUMBER), 80, 1);
    ListView_SetImageList(windowList, CreateSmallImageList(10, 255, IDI_WINDOW), LVSIL_SMALL);
}

void CreatePanes(HWND page) {
    RECT area = kPaneArea;
    MapDialogRect(page, &area);
    for (const PaneTemplate& pane : kPanes) {
        HWND window = UIL_LangModule.LoadDialogParam(pane.dialogId, page, ThreadPaneProc, 0);
        if (!window) continue;
        SetWindowLongPtrW(window, GWLP_ID, pane.paneId);
        SetWindowPos(window, nullptr, area.left, area.top, area.right - area.left, area.bottom - area.top,
                     SWP_NOZORDER | SWP_NOACTIVATE);
    }
}

void ShowPane(HWND page, int buttonId) {
    for (const PaneTemplate& pane : kPanes) {
        const bool chosen = pane.buttonId == buttonId;
        ShowWindow(ThreadsPane(page, pane.paneId), chosen ? SW_SHOW : SW_HIDE);
        // Owner-drawn buttons keep no check state: the chosen one is drawn pushed.
        SendDlgItemMessageW(page, pane.buttonId, BM_SETCHECK, chosen ? BST_CHECKED : BST_UNCHECKED, 0);
        SendDlgItemMessageW(page, pane.buttonId, BM_SETSTATE, chosen ? TRUE : FALSE, 0);
    }
}

BOOL OnInitDialog(HWND page, LPARAM lParam) {
    ProcessPropertiesContext* context = KeepPageContext(page, lParam);
    if (!context) {
        EndPageWithoutContext(page);
        return FALSE;
    }
    wren::Embold(page, IDC_THREADS_TITLE);
    SetUpThreadList(page);
    CreatePanes(page);
    SetUpWindowList(GetDlgItem(ThreadsPane(page, IDC_THREADS_PANE_WINDOWS), IDC_THREAD_WINDOW_LIST));
    const std::pair<int, unsigned short> buttonIcons[] = {
        {IDC_THREADS_SHOW_PERFORMANCE, IDI_PERFORMANCE}, {IDC_THREADS_SHOW_MODULE, IDI_DETAILS_INFO},
        {IDC_THREADS_SHOW_WINDOWS, IDI_WINDOW}};
    for (const auto& [button, icon] : buttonIcons) {
        SendDlgItemMessageW(page, button, WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(SmallSharedIcon(icon)));
    }
    ShowPane(page, IDC_THREADS_SHOW_PERFORMANCE);
    SetTimer(page, kThreadsRefreshTimer, kThreadsHiddenIntervalMs, nullptr);   // the list fills at the first tick
    return TRUE;
}

// Queries only while the page is seen; a hidden page looks again soon, so that it is current when shown.
void OnTimer(HWND page) {
    ProcessPropertiesContext* context = PageContext(page);
    if (!context) {
        EndPageWithoutContext(page);
        return;
    }
    KillTimer(page, kThreadsRefreshTimer);
    if (!IsWindowVisible(page)) {
        SetTimer(page, kThreadsRefreshTimer, kThreadsHiddenIntervalMs, nullptr);
        return;
    }
    context->threadList.QueryThreadList(context->pid);
    SendMessageW(page, kThreadsRefreshMessage, 0, 0);
    SetTimer(page, kThreadsRefreshTimer, context->refreshInterval ? context->refreshInterval : 100, nullptr);
}

bool IsValidThreadId(unsigned threadId) { return threadId != 0 && threadId != static_cast<unsigned>(-1); }

void OnThreadListNotify(HWND page, const NMHDR& header) {
    const unsigned threadId = ThreadAtSelectionMark(page);
    HWND shown = GetDlgItem(page, IDC_THREADS_SHOWN_ID);
    if (threadId != static_cast<unsigned>(GetWindowLongPtrW(shown, GWLP_USERDATA))) {
        SetWindowLongPtrW(shown, GWLP_USERDATA, threadId);
        // Posted: the refresh writes the list, whose notifications would otherwise arrive inside it.
        PostMessageW(page, kThreadsRefreshMessage, 0, 0);
    }
    if (header.code == NM_DBLCLK && IsValidThreadId(threadId)) {
        SendMessageW(page, WM_COMMAND, MAKEWPARAM(IDM_THREAD_CALL_STACK, 0), 0);
    } else if (header.code == NM_RCLICK && IsValidThreadId(threadId)) {
        ShowThreadMenu(page, threadId);
    }
}

INT_PTR OnNotify(HWND page, const NMHDR* header) {
    if (header->idFrom == IDC_THREADS_LIST) {
        OnThreadListNotify(page, *header);
    } else if (header->idFrom == IDC_THREAD_WINDOW_LIST && header->code == NM_RCLICK) {
        ShowWindowMenu(page);
    }
    return FALSE;
}

void OpenCallStack(HWND page) {
    const unsigned threadId = ThreadAtSelectionMark(page);
    if (!IsValidThreadId(threadId)) return;
    // Each opening has its own request: a second stack can be opened while the first is still shown.
    auto request = std::make_unique<CallStackRequest>();
    ShowCallStack(request.get(), threadId, page);
}

void OnCommand(HWND page, unsigned id) {
    switch (id) {
    case IDM_THREAD_CALL_STACK: OpenCallStack(page); break;
    case IDC_THREADS_SHOW_PERFORMANCE:
    case IDC_THREADS_SHOW_MODULE:
    case IDC_THREADS_SHOW_WINDOWS: ShowPane(page, static_cast<int>(id)); break;
    default: RunThreadCommand(page, id); break;
    }
}

}  // namespace

HICON SmallSharedIcon(unsigned short id) { return SharedIconById(id).small; }

HWND ThreadsPane(HWND page, int paneId) { return GetDlgItem(page, paneId); }

unsigned ThreadAtSelectionMark(HWND page) {
    HWND list = GetDlgItem(page, IDC_THREADS_LIST);
    const int mark = ListView_GetSelectionMark(list);
    if (mark < 0) return 0;
    LVITEMW item{};
    item.mask = LVIF_PARAM;
    item.iItem = mark;
    return ListView_GetItem(list, &item) ? static_cast<unsigned>(item.lParam) : 0;
}

HWND SelectedThreadWindow(HWND page) {
    HWND list = GetDlgItem(ThreadsPane(page, IDC_THREADS_PANE_WINDOWS), IDC_THREAD_WINDOW_LIST);
    const int row = ListView_GetNextItem(list, -1, LVNI_SELECTED);
    if (row < 0) return nullptr;
    LVITEMW item{};
    item.mask = LVIF_PARAM;
    item.iItem = row;
    if (!ListView_GetItem(list, &item) || item.lParam == 0 || item.lParam == -1) return nullptr;
    return reinterpret_cast<HWND>(item.lParam);
}

int FindRowByData(HWND list, LPARAM data) {
    LVFINDINFOW find{};
    find.flags = LVFI_PARAM | LVFI_WRAP;
    find.lParam = data;
    return static_cast<int>(SendMessageW(list, LVM_FINDITEMW, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&find)));
}

int AppendRowWithData(HWND list, int image, LPARAM data) {
    LVITEMW item{};
    item.mask = LVIF_IMAGE | LVIF_PARAM | LVIF_TEXT;
    item.iItem = ListView_GetItemCount(list);
    item.iImage = image;
    item.lParam = data;
    item.pszText = const_cast<wchar_t*>(L"");
    return ListView_InsertItem(list, &item);
}

void SetCellIfChanged(HWND list, int row, int column, const std::wstring& text) {
    wchar_t current[512] = {};
    ListView_GetItemText(list, row, column, current, 512);
    if (text != current) wren::ListViewSetItemText(list, row, column, text.c_str());
}

INT_PTR CALLBACK ThreadsPageProc(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_INITDIALOG: return OnInitDialog(page, lParam);
    case WM_SHOWWINDOW:
        if (!PageContext(page)) EndPageWithoutContext(page);
        return FALSE;
    case WM_TIMER:
        if (wParam == kThreadsRefreshTimer) OnTimer(page);
        return TRUE;
    case kThreadsRefreshMessage:
        if (PageContext(page)) RefreshThreadsPage(page);
        return TRUE;
    case WM_NOTIFY: return OnNotify(page, reinterpret_cast<const NMHDR*>(lParam));
    case WM_COMMAND: OnCommand(page, LOWORD(wParam)); return TRUE;
    case WM_DRAWITEM: return DrawOwnerButton(page, reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
    default: return FALSE;
    }
}

}  // namespace lmvx
