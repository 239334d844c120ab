// The pages of the Options dialog and what they share. Each page receives the dialog's hooks as the lParam
// of its WM_INITDIALOG, stores what it shows on WM_COMMAND IDOK (sent by the frame in tree order) and ends
// itself on IDCANCEL.
#pragma once
#include <windows.h>

#include "app/option_keys.h"
#include "options/options_dialog.h"
#include "resource.h"
#include "wren.h"

namespace lmvx {

INT_PTR CALLBACK TaskManagerPageProc(HWND page, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR CALLBACK TrayIconPageProc(HWND page, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR CALLBACK ProcessListPageProc(HWND page, UINT message, WPARAM wParam, LPARAM lParam);

namespace options_page {

inline const OptionsDialogHooks* KeepHooks(HWND page, LPARAM initParam) {
    SetWindowLongPtrW(page, GWLP_USERDATA, initParam);
    return reinterpret_cast<const OptionsDialogHooks*>(initParam);
}
inline const OptionsDialogHooks* Hooks(HWND page) {
    return reinterpret_cast<const OptionsDialogHooks*>(GetWindowLongPtrW(page, GWLP_USERDATA));
}
inline bool IsChecked(HWND page, int id) { return IsDlgButtonChecked(page, id) == BST_CHECKED; }
inline void SetChecked(HWND page, int id, bool checked) { CheckDlgButton(page, id, checked ? BST_CHECKED : BST_UNCHECKED); }
inline bool ReadOption(const BoolOption& option) {
    return wren::regOptions.GetOptionBOOL(option.name, option.defaultValue) != 0;
}
inline void StoreCheck(HWND page, int id, const BoolOption& option) {
    wren::regOptions.SetOptionBOOL(option.name, IsChecked(page, id) ? 1 : 0);
}

// The procedure every page shares: it keeps the hooks and makes the heading bold, then calls the page's own
// handlers for init and commands; IDCANCEL ends the page (the frame never sends it).
template <void (*OnInitDialog)(HWND), void (*OnCommand)(HWND, WORD)>
INT_PTR Procedure(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_INITDIALOG:
        KeepHooks(page, lParam);
        wren::Embold(page, IDC_OPTIONS_HEADING);
        OnInitDialog(page);
        return TRUE;
    case WM_COMMAND:
        if (LOWORD(wParam) == IDCANCEL) {
            EndDialog(page, 1);
        } else {
            OnCommand(page, LOWORD(wParam));
        }
        return TRUE;
    }
    return FALSE;
}

}  // namespace options_page
}  // namespace lmvx
