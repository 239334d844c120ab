#include "kobj/handle_page_common.h"

#include "common/unique_resource.h"
#include "kobj/handle_list_view.h"
#include "resource.h"
#include "wren.h"

namespace lmvx::kobj {

HWND PageList(HWND page) { return GetDlgItem(page, IDC_HPAGE_LIST); }

void SetUpHandlePage(HWND page, ProcessPropertiesContext& context, HWND ProcessPropertiesContext::*slot,
                     const unsigned* columnTextIds, const int* columnWidths, int columnCount) {
    wren::Embold(page, IDC_HPAGE_TITLE);
    context.*slot = page;
    SetUpColumns(PageList(page), columnTextIds, columnWidths, columnCount);
}

namespace {

// Timer 4000 at the window's refresh interval (100 ms when it is 0).
void ArmRefreshTimer(HWND page, const ProcessPropertiesContext& context) {
    SetTimer(page, IDT_HANDLES_REFRESH, context.refreshInterval ? context.refreshInterval : 100, nullptr);
}

void OnTimer(const PageBehaviour& behaviour, HWND page, ProcessPropertiesContext& context, UINT_PTR timer) {
    KillTimer(page, timer);
    if (timer != IDT_HANDLES_REFRESH) return;
    if (IsWindowVisible(page)) behaviour.refresh(page, context);
    ArmRefreshTimer(page, context);
}

void OnNotify(const PageBehaviour& behaviour, HWND page, const NMHDR& header) {
    if (header.idFrom != IDC_HPAGE_LIST) return;
    const int row = reinterpret_cast<const NMITEMACTIVATE&>(header).iItem;
    if (header.code == NM_RCLICK && row >= 0) behaviour.showMenu(page);
    if (header.code == NM_DBLCLK && row >= 0) PostMessageW(page, WM_COMMAND, IDM_HANDLE_PROPERTIES, 0);
}

BOOL OnInitDialog(const PageBehaviour& behaviour, HWND page, ProcessPropertiesContext* context) {
    KeepPageContext(page, reinterpret_cast<LPARAM>(context));
    behaviour.setUp(page, *context);
    ArmRefreshTimer(page, *context);
    return TRUE;
}

}  // namespace

INT_PTR HandlePageMessage(const PageBehaviour& behaviour, HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG)
        return OnInitDialog(behaviour, page, reinterpret_cast<ProcessPropertiesContext*>(lParam));
    ProcessPropertiesContext* context = PageContext(page);
    if (!context) return FALSE;
    switch (message) {
    case WM_SHOWWINDOW:
        if (wParam) behaviour.refresh(page, *context);
        return FALSE;
    case WM_TIMER: OnTimer(behaviour, page, *context, wParam); return TRUE;
    case WM_COMMAND: behaviour.command(page, *context, LOWORD(wParam)); return TRUE;
    case WM_NOTIFY: OnNotify(behaviour, page, *reinterpret_cast<const NMHDR*>(lParam)); return TRUE;
    default: return FALSE;
    }
}

void ShowPageMenu(HWND page, std::span<const PageMenuItem> items) {
    UniqueMenu menu(CreatePopupMenu());
    if (!menu) return;
    for (const PageMenuItem& item : items) {
        if (!item.english) {
            AppendMenuW(menu.Get(), MF_SEPARATOR, 0, nullptr);
            continue;
        }
        AppendMenuW(menu.Get(), MF_STRING | (item.checked ? MF_CHECKED : 0), item.command,
                    wren::HardcodeLangString(item.english, item.german));
        if (item.isDefault) SetMenuDefaultItem(menu.Get(), item.command, FALSE);
    }
    POINT cursor{};
    GetCursorPos(&cursor);
    TrackPopupMenu(menu.Get(), TPM_LEFTALIGN | TPM_TOPALIGN | TPM_RIGHTBUTTON, cursor.x, cursor.y, 0, page, nullptr);
}

void FinishRefresh(HWND list, bool changed) {
    SendMessageW(list, WM_SETREDRAW, TRUE, 0);
    if (changed) InvalidateRect(list, nullptr, TRUE);
    SortByFirstColumnIfNeeded(list);
}

}  // namespace lmvx::kobj
