#include "net/network_page.h"

#include <commctrl.h>

#include "app/option_keys.h"
#include "common/unique_resource.h"
#include "finch.h"
#include "net/endpoint_rows.h"
#include "resource.h"
#include "wren.h"

namespace lmvx::net {
namespace {

constexpr UINT_PTR kRefreshTimer = 4000;
constexpr int kCopyTextLimit = 256;

HWND ListOf(HWND page) { return GetDlgItem(page, IDC_ENDPOINT_LIST); }

bool ResolveOn() {
    return wren::regOptions.GetOptionBOOL(options::ResolveHostnames.name, options::ResolveHostnames.defaultValue) != 0;
}

void StartRefreshTimer(HWND page, const ProcessPropertiesContext& context) {
    SetTimer(page, kRefreshTimer, RefreshTimerPeriod(context.refreshInterval), nullptr);
}

INT_PTR OnInitDialog(HWND page, LPARAM lParam) {
    ProcessPropertiesContext* context = KeepPageContext(page, lParam);
    if (!context) {
        MessageBoxW(page, UIL_LangModule.GetLangString(IDS_UNEXPECTED_ERROR),
                    UIL_LangModule.GetLangString(IDS_PROCESS_PROPERTIES), MB_ICONERROR);
        return TRUE;
    }
    context->networkPage = page;
    wren::Embold(page, IDC_NETWORK_PAGE_HEADING);
    wchar_t heading[256] = {};
    APIP_FormatString(heading, sizeof heading, UIL_LangModule.GetLangString(IDS_ENDPOINTS_CAPTION),
                      static_cast<int>(context->pid));
    SetDlgItemTextW(page, IDC_NETWORK_PAGE_HEADING, heading);
    ListView_SetExtendedListViewStyle(ListOf(page), LVS_EX_FULLROWSELECT);
    const int widths[4] = {60, 120, 165, 100};
    AddEndpointColumns(ListOf(page), widths);
    StartRefreshTimer(page, *context);
    return TRUE;
}

void Refresh(HWND page) {
    if (ProcessPropertiesContext* context = PageContext(page)) RefreshNetworkPage(page, *context);
}

void OnTimer(HWND page, UINT_PTR timer) {
    KillTimer(page, timer);
    const ProcessPropertiesContext* context = PageContext(page);
    if (timer != kRefreshTimer || !context) return;
    if (IsWindowVisible(page)) SendMessageW(page, kNetworkPageRefresh, 0, 0);
    StartRefreshTimer(page, *context);
}

void ShowContextMenu(HWND page) {
    HWND list = ListOf(page);
    if (ListView_GetItemCount(list) == 0 || ListView_GetNextItem(list, -1, LVNI_SELECTED) < 0) return;
    UniqueMenu menu(CreatePopupMenu());
    if (!menu) return;
    AppendMenuW(menu.Get(), MF_STRING | (ResolveOn() ? MF_CHECKED : MF_UNCHECKED), IDM_RESOLVE_HOSTNAMES,
                wren::HardcodeLangString(L"Resolve Hostnames", L"Hostnamen auflösen"));
    AppendMenuW(menu.Get(), MF_SEPARATOR, 0, nullptr);
    AppendMenuW(menu.Get(), MF_STRING, IDM_COPY_LOCAL_HOSTNAME,
                wren::HardcodeLangString(L"Copy Local Hostname", L"Lokalen Hostnamen kopieren"));
    AppendMenuW(menu.Get(), MF_STRING, IDM_COPY_REMOTE_HOSTNAME,
                wren::HardcodeLangString(L"Copy Remote Hostname", L"Remote Hostnamen kopieren"));
    POINT cursor{};
    GetCursorPos(&cursor);
    const UINT command = TrackPopupMenu(menu.Get(), TPM_RETURNCMD | TPM_LEFTALIGN | TPM_RIGHTBUTTON, cursor.x,
                                        cursor.y, 0, page, nullptr);
    if (command) SendMessageW(page, WM_COMMAND, command, 0);
}

// The clipboard is filled through the hidden edit control, which copies what it holds selected.
void CopyColumnOfSelection(HWND page, int column) {
    HWND list = ListOf(page);
    const int row = ListView_GetNextItem(list, -1, LVNI_SELECTED);
    if (row < 0) return;
    wchar_t text[kCopyTextLimit + 1] = {};
    ListView_GetItemText(list, row, column, text, kCopyTextLimit);
    if (!*text) return;
    HWND edit = GetDlgItem(page, IDC_NETWORK_PAGE_COPY_EDIT);
    SetWindowTextW(edit, text);
    SendMessageW(edit, EM_SETSEL, 0, -1);
    SendMessageW(edit, WM_COPY, 0, 0);
}

void OnCommand(HWND page, WORD command) {
    switch (command) {
    case IDM_RESOLVE_HOSTNAMES:
        wren::regOptions.SetOptionBOOL(options::ResolveHostnames.name, ResolveOn() ? 0 : 1);
        Refresh(page);
        break;
    case IDM_COPY_LOCAL_HOSTNAME: CopyColumnOfSelection(page, 1); break;
    case IDM_COPY_REMOTE_HOSTNAME: CopyColumnOfSelection(page, 2); break;
    }
}

INT_PTR OnNotify(HWND page, const NMHDR& header) {
    if (header.idFrom == IDC_ENDPOINT_LIST && header.code == NM_RCLICK) ShowContextMenu(page);
    return FALSE;
}

}  // namespace

void RefreshNetworkPage(HWND page, ProcessPropertiesContext& context) {
    const bool resolve = ResolveOn();
    context.connectionList.QueryProcessList(context.pid);
    // Bounded: names still being looked up appear at a later refresh.
    context.connectionList.ResolveAddresses();
    RefreshEndpointRows(ListOf(page), context.connectionList,
                        {[](const EndpointFields& fields) { return fields.protocolText; },
                         [resolve](const EndpointFields& fields) { return PageColumns(fields, resolve); }});
}

INT_PTR CALLBACK NetworkPageProc(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_INITDIALOG: return OnInitDialog(page, lParam);
    case WM_SHOWWINDOW:
        if (wParam) Refresh(page);
        return FALSE;
    case kNetworkPageRefresh: Refresh(page); return TRUE;
    case WM_TIMER: OnTimer(page, wParam); return TRUE;
    case WM_NOTIFY: return OnNotify(page, *reinterpret_cast<const NMHDR*>(lParam));
    case WM_COMMAND: OnCommand(page, LOWORD(wParam)); return TRUE;
    case WM_DESTROY: KillTimer(page, kRefreshTimer); return FALSE;
    }
    return FALSE;
}

}  // namespace lmvx::net
