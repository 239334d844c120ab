#include "run/run_dialog.h"

#include <commdlg.h>

#include <string>

#include "common/dialog_thread.h"
#include "common/unique_resource.h"
#include "finch.h"
#include "resource.h"
#include "run/run_command.h"
#include "run/run_mru.h"
#include "wren.h"

namespace lmvx {
namespace {

struct RunContext {
    HWND owner = nullptr;
    HWND dialog = nullptr;
};

void LabelCurrentUserChoice(HWND dialog) {
    wchar_t user[256] = {};
    DWORD length = 256;
    if (!GetUserNameW(user, &length)) user[0] = L'\0';
    wchar_t label[512] = {};
    APIP_FormatString(label, sizeof(label), UIL_LangModule.GetLangString(IDS_RUN_AS_CURRENT_USER), user);
    SetDlgItemTextW(dialog, IDC_RUN_AS_CURRENT_USER, label);
    wren::Embold(dialog, IDC_RUN_AS_CURRENT_USER);
    CheckDlgButton(dialog, IDC_RUN_AS_CURRENT_USER, BST_CHECKED);
}

void LabelElevatedChoice(HWND dialog) {
    OSVERSIONINFOW version{};
    version.dwOSVersionInfoSize = sizeof(version);
    const bool known = GetVersionExW(&version) != 0;
    if (known && version.dwMajorVersion >= 6)
        SetDlgItemTextW(dialog, IDC_RUN_AS_ADMINISTRATOR, UIL_LangModule.GetLangString(IDS_RUN_AS_ADMINISTRATOR));
}

// The recent commands go to control 1003, which template 266 does not have, so they never show: intended.
void ListRecentCommands(HWND dialog) {
    UniqueRegKey runMru;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, kRunMruKey, 0, KEY_READ, runMru.Put()) == ERROR_SUCCESS) {
        for (const std::wstring& entry : ReadRunMruEntries(runMru.Get()))
            SendDlgItemMessageW(dialog, IDC_RUN_RECENT_TARGET, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(entry.c_str()));
    }
    SendDlgItemMessageW(dialog, IDC_RUN_RECENT_TARGET, CB_SELECTSTRING, static_cast<WPARAM>(-1),
                        reinterpret_cast<LPARAM>(L""));
}

INT_PTR OnInitDialog(HWND dialog, RunContext* context) {
    SetWindowLongPtrW(dialog, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(context));
    if (context) context->dialog = dialog;
    LabelCurrentUserChoice(dialog);
    LabelElevatedChoice(dialog);
    ListRecentCommands(dialog);
    return TRUE;
}

void OnOk(HWND dialog) {
    wchar_t command[1024] = {};
    GetDlgItemTextW(dialog, IDC_RUN_COMMAND, command, 1024);
    if (command[0] == L'\0') return;   // nothing typed: the dialog stays open
    const bool asCurrentUser = IsDlgButtonChecked(dialog, IDC_RUN_AS_CURRENT_USER) == BST_CHECKED;
    StartRunCommand(dialog, command, asCurrentUser);
    EndDialog(dialog, IDOK);   // after any attempt, whether it started or not
}

void OnBrowse(HWND dialog) {
    // Filter: name and pattern, each zero-terminated, then the closing zero.
    std::wstring filter = UIL_LangModule.GetLangString(IDS_RUN_FILTER_NAME);
    filter.append(1, L'\0').append(L"*.exe; *.com").append(2, L'\0');
    wchar_t file[1024] = {};
    OPENFILENAMEW open{};
    open.lStructSize = sizeof(open);
    open.hwndOwner = dialog;
    open.lpstrFilter = filter.c_str();
    open.lpstrFile = file;
    open.nMaxFile = 1024;
    open.lpstrTitle = UIL_LangModule.GetLangString(IDS_RUN_BROWSE_TITLE);
    open.Flags = OFN_EXPLORER | OFN_FILEMUSTEXIST | OFN_PATHMUSTEXIST;
    // The chosen path goes to control 1003 like the recent commands, so it does not show: intended.
    if (GetOpenFileNameW(&open)) SetDlgItemTextW(dialog, IDC_RUN_RECENT_TARGET, file);
}

void OnCommand(HWND dialog, WORD command) {
    switch (command) {
    case IDOK: OnOk(dialog); break;
    case IDC_RUN_BROWSE: OnBrowse(dialog); break;
    case IDCANCEL: EndDialog(dialog, IDCANCEL); break;
    default: break;
    }
}

DWORD WINAPI ShowRunDialogOnThisThread(void* parameter) {
    auto* context = static_cast<RunContext*>(parameter);
    UIL_LangModule.ShowDialogParam(IDD_RUN, context->owner, RunDialogProc, reinterpret_cast<LPARAM>(context));
    return 0;
}

}  // namespace

INT_PTR CALLBACK RunDialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_INITDIALOG: return OnInitDialog(dialog, reinterpret_cast<RunContext*>(lParam));
    case WM_COMMAND: OnCommand(dialog, LOWORD(wParam)); return TRUE;
    }
    return FALSE;
}

void OpenRunDialog(HWND owner) {
    RunContext context{owner, nullptr};
    RunDialogThread(ShowRunDialogOnThisThread, &context);
}

}  // namespace lmvx
