// Options page "Replace Task Manager": the replacement for all users and the per-user logon launcher.
#include "app/logon_launcher.h"
#include "app/taskmgr_replacement.h"
#include "finch.h"
#include "options/options_pages.h"
#include "resource.h"

namespace lmvx {
namespace {

using namespace options_page;

void OnInitDialog(HWND page) {
    SetChecked(page, IDC_OPTIONS_REPLACE_TASKMGR, IsTaskManagerReplaced() != 0);
    // Without administrative rights the key cannot be written: the box shows the state but cannot change it.
    EnableWindow(GetDlgItem(page, IDC_OPTIONS_REPLACE_TASKMGR), CanWriteReplacementKey());
    SetChecked(page, IDC_OPTIONS_LAUNCH_ON_CAF, ReadOption(options::LaunchOnCAF));
}

void ApplyReplacement(HWND page) {
    if (!CanReadReplacementKey()) return;
    const bool wanted = IsChecked(page, IDC_OPTIONS_REPLACE_TASKMGR);
    if (wanted == (IsTaskManagerReplaced() != 0)) return;
    if (!SetTaskManagerReplacement(wanted ? 1 : 0)) {
        UIP_ShowWarning(nullptr, UIL_LangModule.GetLangString(IDS_OPTIONS_CANNOT_REPLACE),
                        UIL_LangModule.GetLangString(IDS_OPTIONS_NEEDS_ADMIN), wren::GetAppName());
    }
}

void ApplyLauncher(HWND page) {
    const bool wanted = IsChecked(page, IDC_OPTIONS_LAUNCH_ON_CAF);
    if (wanted == ReadOption(options::LaunchOnCAF)) return;
    StoreCheck(page, IDC_OPTIONS_LAUNCH_ON_CAF, options::LaunchOnCAF);
    SetLogonLauncher(wanted ? 1 : 0);
}

void OnCommand(HWND page, WORD command) {
    switch (command) {
    case IDOK:
        ApplyReplacement(page);
        ApplyLauncher(page);
        break;
    }
}

}  // namespace

INT_PTR CALLBACK TaskManagerPageProc(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    return Procedure<OnInitDialog, OnCommand>(page, message, wParam, lParam);
}

}  // namespace lmvx
