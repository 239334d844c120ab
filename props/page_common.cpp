#include "props/page_common.h"

#include <commctrl.h>

#include <cstdarg>

#include "finch.h"
#include "props/page_services.h"
#include "props/page_texts.h"
#include "resource.h"
#include "wren.h"

namespace lmvx {

std::wstring LangText(unsigned stringId) { return UIL_LangModule.GetLangString(stringId); }

void SetBoldTitle(HWND page) { APIP_SetWindowFont(GetDlgItem(page, IDC_PAGES_TITLE), APIP_hFontBold, TRUE); }

std::wstring DurationText(const SYSTEMTIME& duration, bool withMilliseconds) {
    const DurationDays days = DurationDaysOf(duration.wDay);
    const std::wstring dayText = days.textId ? FormatText(LangText(days.textId).c_str(), days.count) : L"";
    if (withMilliseconds) {
        return FormatText(L"%s %.2d:%.2d:%.2d.%.3d", dayText.c_str(), duration.wHour, duration.wMinute,
                          duration.wSecond, duration.wMilliseconds);
    }
    return FormatText(L"%s %.2d:%.2d:%.2d", dayText.c_str(), duration.wHour, duration.wMinute, duration.wSecond);
}

UniqueIcon FillProcessHeader(HWND page, const kestrel::TL_PROCESSLIST& list, int item) {
    APIP_SetWindowFont(GetDlgItem(page, IDC_PAGES_PROCESS_NAME), APIP_hFontBold, TRUE);
    SetDlgItemTextW(page, IDC_PAGES_PROCESS_NAME, list.GetItemDisplayName(item));
    SetDlgItemTextW(page, IDC_PAGES_COMPANY, list.GetItemInfoCompanyName(item));
    SetDlgItemTextW(page, IDC_PAGES_PATH, list.GetItemPathName(item));
    UniqueIcon icon(CopyIcon(list.GetItemIcon(item)));
    SendDlgItemMessageW(page, IDC_PAGES_PROCESS_ICON, STM_SETICON, reinterpret_cast<WPARAM>(icon.Get()), 0);
    return icon;
}

INT_PTR EndPageWithMessage(HWND page, unsigned textId, UINT iconFlag) {
    MessageBoxW(page, LangText(textId).c_str(), LangText(IDS_PROCESS_PROPERTIES).c_str(), MB_OK | iconFlag);
    EndDialog(page, 0);
    return TRUE;
}

void SetUpItemValueList(HWND list, int itemWidth, int valueWidth) {
    ListView_SetExtendedListViewStyle(list, LVS_EX_GRIDLINES | LVS_EX_FULLROWSELECT);
    UIP_ListViewAddColumn(list, 0, LangText(IDS_COLUMN_ITEM).c_str(), itemWidth, 0);
    UIP_ListViewAddColumn(list, 1, LangText(IDS_COLUMN_VALUE).c_str(), valueWidth, 0);
    ListView_SetColumnWidth(list, 1, LVSCW_AUTOSIZE_USEHEADER);
}

INT_PTR DrawPageOwnerItem(const DRAWITEMSTRUCT* item) {
    if (CurrentPageServices().drawOwnerButton) CurrentPageServices().drawOwnerButton(item->hwndItem, item);
    return TRUE;
}

bool EndPageOnCloseCommand(HWND page, WPARAM wParam) {
    const WORD command = LOWORD(wParam);
    if (command != IDOK && command != IDCANCEL) return false;
    EndDialog(page, command);
    return true;
}

}  // namespace lmvx
