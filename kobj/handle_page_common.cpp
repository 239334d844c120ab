#include "kobj/handle_page_common.h"

#include "common/unique_resource.h"
#include "kobj/handle_list_view.h"
#include "resource.h"
#include "wren.h"

namespace lmvx::kobj {

HWND PageList(HWND page) { return GetDlgItem(page, IDC_HPAGE_LIST); }

void SetUpHandlePage(HWND page, ProcessPropertiesContext* context, HWND ProcessPropertiesContext::*slot,
                     const unsigned* columnTextIds, const int* columnWidths, int columnCount) {
    wren::Embold(page, IDC_HPAGE_TITLE);
    KeepPageContext(page, reinterpret_cast<LPARAM>(context));
    context->*slot = page;
    SetUpColumns(PageList(page), columnTextIds, columnWidths, columnCount);
}

void ArmPageRefreshTimer(HWND page, const ProcessPropertiesContext& context) {
    SetTimer(page, IDT_HANDLES_REFRESH, context.refreshInterval ? context.refreshInterval : 100, nullptr);
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
