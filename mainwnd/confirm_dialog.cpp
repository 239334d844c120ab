#include "mainwnd/confirm_dialog.h"

#include <memory>
#include <new>

#include "app/lmvx.h"
#include "common/unique_resource.h"
#include "dialog_ids.h"
#include "finch.h"
#include "common/owner_button.h"
#include "string_ids.h"

namespace lmvx {

namespace {

// What the dialog keeps while it is open: its own copy of the process icon, because the provider's icon is
// only valid until the next refresh, which may come while the user reads.
struct ConfirmDialogContext {
    UniqueIcon icon;
};

void ShowUnknownProcess(HWND dialog, unsigned pid) {
    wchar_t name[512];
    APIP_FormatString(name, sizeof(name), UIL_LangModule.GetLangString(IDS_UNKNOWN_PROCESS), static_cast<int>(pid));
    SetDlgItemTextW(dialog, IDC_CONFIRM_NAME, name);
}

// context may be null (no memory for it): the dialog then goes without the icon.
void ShowKnownProcess(HWND dialog, int item, ConfirmDialogContext* context) {
    SetDlgItemTextW(dialog, IDC_CONFIRM_NAME, g_processList.GetItemDisplayName(item));
    SetDlgItemTextW(dialog, IDC_CONFIRM_COMPANY, g_processList.GetItemInfoCompanyName(item));
    const HICON icon = g_processList.GetItemIcon(item);
    if (icon == nullptr || context == nullptr) return;
    context->icon.Reset(CopyIcon(icon));
    SendDlgItemMessageW(dialog, IDC_CONFIRM_ICON, STM_SETICON, reinterpret_cast<WPARAM>(context->icon.Get()), 0);
}

INT_PTR OnInitDialog(HWND dialog, unsigned pid) {
    std::unique_ptr<ConfirmDialogContext> context(new (std::nothrow) ConfirmDialogContext);
    APIP_SetWindowFont(GetDlgItem(dialog, IDC_CONFIRM_NAME), APIP_hFontBold, TRUE);
    const int item = g_processList.GetItemByPID(pid);
    if (item == -1) {
        ShowUnknownProcess(dialog, pid);
    } else {
        ShowKnownProcess(dialog, item, context.get());
    }
    SetWindowLongPtrW(dialog, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(context.release()));
    return TRUE;
}

INT_PTR OnCommand(HWND dialog, WORD commandId) {
    if (commandId != IDOK && commandId != IDCANCEL) return FALSE;
    EndDialog(dialog, commandId);
    return TRUE;
}

// The icon control is gone by now (an icon control never destroys its icon), so the copy can go.
void OnNcDestroy(HWND dialog) {
    delete reinterpret_cast<ConfirmDialogContext*>(SetWindowLongPtrW(dialog, GWLP_USERDATA, 0));
}

}  // namespace

INT_PTR CALLBACK ConfirmProcessDialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_INITDIALOG: return OnInitDialog(dialog, static_cast<unsigned>(lParam));
    case WM_COMMAND: return OnCommand(dialog, LOWORD(wParam));
    case WM_DRAWITEM: return DrawOwnerButton(dialog, reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
    case WM_NCDESTROY: OnNcDestroy(dialog); return FALSE;
    default: return FALSE;
    }
}

bool ConfirmProcessAction(UINT templateId, unsigned pid, HWND owner) {
    return UIL_LangModule.ShowDialogParam(templateId, owner, ConfirmProcessDialogProc, static_cast<LPARAM>(pid)) ==
           IDOK;
}

}  // namespace lmvx
