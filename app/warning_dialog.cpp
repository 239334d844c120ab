#include "app/warning_dialog.h"

#include "finch.h"
#include "resource.h"

namespace lmvx {
namespace {

INT_PTR OnInitDialog(HWND dialog, const wchar_t* message) {
    APIP_SetWindowFont(GetDlgItem(dialog, IDC_WARNING_HEADLINE), APIP_hFontBold, TRUE);
    SetDlgItemTextW(dialog, IDC_WARNING_MESSAGE, message);
    return TRUE;
}

void OnCommand(HWND dialog, WORD command) {
    // Both ways out keep the state of the box, so Escape does not lose a tick.
    if (command == IDOK || command == IDCANCEL) {
        const bool ticked = SendDlgItemMessageW(dialog, IDC_WARNING_DONT_SHOW_AGAIN, BM_GETCHECK, 0, 0) == BST_CHECKED;
        EndDialog(dialog, ticked ? 1 : 0);
    }
}

INT_PTR CALLBACK WarningDialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_INITDIALOG:
        return OnInitDialog(dialog, reinterpret_cast<const wchar_t*>(lParam));
    case WM_COMMAND:
        OnCommand(dialog, LOWORD(wParam));
        return TRUE;
    }
    return FALSE;
}

}  // namespace

int ShowWarningDialog(HWND parent, const wchar_t* message) {
    return static_cast<int>(
        UIL_LangModule.ShowDialogParam(IDD_WARNING, parent, WarningDialogProc, reinterpret_cast<LPARAM>(message)));
}

}  // namespace lmvx
