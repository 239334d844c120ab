#include "mainwnd/about_dialogs.h"

#include "app/option_keys.h"
#include "app/shared_icons.h"
#include "finch.h"
#include "resource.h"
#include "wren.h"

namespace lmvx {
namespace {

void SetIconAndBoldLine(HWND dialog, int iconControl, HICON icon, int boldControl) {
    SendDlgItemMessageW(dialog, iconControl, STM_SETICON, reinterpret_cast<WPARAM>(icon), 0);
    APIP_SetWindowFont(GetDlgItem(dialog, boldControl), APIP_hFontBold, TRUE);
}

INT_PTR OnAboutInit(HWND dialog) {
    // LoadIcon hands out the module's shared 32 x 32 copy, which is never destroyed.
    HICON programIcon = LoadIconW(wren::GetStoredInstance(), MAKEINTRESOURCEW(IDI_LUMIVEX));
    SetIconAndBoldLine(dialog, IDC_ABOUT_ICON, programIcon, IDC_ABOUT_NAME);
    SetDlgItemTextW(dialog, IDC_ABOUT_NAME, wren::GetAppNameFull());
    SetDlgItemTextW(dialog, IDC_ABOUT_VERSION,
                    AboutVersionLine(wren::GetAppVersionText(), wren::GetBuildNumber()).c_str());
    const wchar_t* built = wren::HardcodeLangString(L"Built", L"Erstellt");
    SetDlgItemTextW(dialog, IDC_ABOUT_BUILD,
                    AboutBuildLine(built, wren::GetBuildDate(), wren::GetBuildTime()).c_str());
    return TRUE;
}

INT_PTR CALLBACK AboutProc(HWND dialog, UINT message, WPARAM wParam, LPARAM) {
    switch (message) {
    case WM_INITDIALOG:
        return OnAboutInit(dialog);
    case WM_COMMAND:
        if (LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL) EndDialog(dialog, LOWORD(wParam));
        return TRUE;
    }
    return FALSE;
}

INT_PTR OnLimitedAccessInit(HWND dialog) {
    SetIconAndBoldLine(dialog, IDC_LIMITED_ICON, SharedIconById(IDI_LIMITED_ACCESS).large, IDC_LIMITED_HEADLINE);
    const auto& request = options::RequestElevation;
    CheckDlgButton(dialog, IDC_LIMITED_REQUEST_ELEVATION,
                   wren::regOptions.GetOptionBOOL(request.name, request.defaultValue) ? BST_CHECKED : BST_UNCHECKED);
    return TRUE;
}

void OnLimitedAccessCommand(HWND dialog, WORD command) {
    if (command == IDOK) {
        const bool ticked = IsDlgButtonChecked(dialog, IDC_LIMITED_REQUEST_ELEVATION) == BST_CHECKED;
        wren::regOptions.SetOptionBOOL(options::RequestElevation.name, ticked ? 1 : 0);
    }
    if (command == IDOK || command == IDCANCEL) EndDialog(dialog, command);
}

INT_PTR CALLBACK LimitedAccessProc(HWND dialog, UINT message, WPARAM wParam, LPARAM) {
    switch (message) {
    case WM_INITDIALOG:
        return OnLimitedAccessInit(dialog);
    case WM_COMMAND:
        OnLimitedAccessCommand(dialog, LOWORD(wParam));
        return TRUE;
    }
    return FALSE;
}

}  // namespace

void ShowAboutBox(HWND owner) { UIL_LangModule.ShowDialogParam(IDD_ABOUT, owner, AboutProc, 0); }

void ShowLimitedAccessDialog(HWND owner) {
    UIL_LangModule.ShowDialogParam(IDD_DIALOG_277, owner, LimitedAccessProc, 0);
}

}  // namespace lmvx
