// Options page "Tray Icon": the notification-area icon, hiding when minimised, and the performance pop-up.
#include "options/options_pages.h"
#include "options/tray_page_rules.h"
#include "resource.h"

namespace lmvx {
namespace {

using namespace options_page;

// The pop-up parts have no controls on this page: reads and writes through their ids find none.
constexpr int kGraphPartIds[] = {IDC_OPTIONS_PERF_CPU, IDC_OPTIONS_PERF_SYS_CPU, IDC_OPTIONS_PERF_PHYS_MEM};

void ApplyEnablingRule(HWND page) {
    const TrayPageEnabling enabling = TrayPageEnablingFor(IsChecked(page, IDC_OPTIONS_SHOW_TRAY_ICON),
                                                          IsChecked(page, IDC_OPTIONS_SHOW_PERF_GRAPH));
    EnableWindow(GetDlgItem(page, IDC_OPTIONS_HIDE_MINIMIZED), enabling.hideWhenMinimized);
    EnableWindow(GetDlgItem(page, IDC_OPTIONS_SHOW_PERF_GRAPH), enabling.performanceGraph);
    for (int id : kGraphPartIds) {
        if (HWND control = GetDlgItem(page, id)) EnableWindow(control, enabling.graphParts);
    }
}

void OnInitDialog(HWND page) {
    wren::Embold(page, IDC_OPTIONS_PERF_GROUP);
    SetChecked(page, IDC_OPTIONS_SHOW_TRAY_ICON, ReadOption(options::ShowTrayIcon));
    SetChecked(page, IDC_OPTIONS_HIDE_MINIMIZED, ReadOption(options::HideWhenMinimized));
    // Unchecked whatever "ShowTrayPerfWnd" holds: intended, the tray menu owns that switch.
    SetChecked(page, IDC_OPTIONS_SHOW_PERF_GRAPH, false);
    SetChecked(page, IDC_OPTIONS_PERF_CPU, ReadOption(options::ShowTrayPerfCPU));
    SetChecked(page, IDC_OPTIONS_PERF_SYS_CPU, ReadOption(options::ShowTrayPerfSysCPU));
    SetChecked(page, IDC_OPTIONS_PERF_PHYS_MEM, ReadOption(options::ShowTrayPerfPhysMem));
    ApplyEnablingRule(page);
}

// OK stores every box as it stands, so "ShowTrayPerfWnd" and the pop-up parts are stored off: intended.
void OnOk(HWND page) {
    StoreCheck(page, IDC_OPTIONS_SHOW_TRAY_ICON, options::ShowTrayIcon);
    StoreCheck(page, IDC_OPTIONS_HIDE_MINIMIZED, options::HideWhenMinimized);
    StoreCheck(page, IDC_OPTIONS_SHOW_PERF_GRAPH, options::ShowTrayPerfWnd);
    StoreCheck(page, IDC_OPTIONS_PERF_CPU, options::ShowTrayPerfCPU);
    StoreCheck(page, IDC_OPTIONS_PERF_SYS_CPU, options::ShowTrayPerfSysCPU);
    StoreCheck(page, IDC_OPTIONS_PERF_PHYS_MEM, options::ShowTrayPerfPhysMem);
    const OptionsDialogHooks* hooks = Hooks(page);
    if (hooks && hooks->showTrayIcon) hooks->showTrayIcon(ReadOption(options::ShowTrayIcon));
}

void OnCommand(HWND page, WORD command) {
    switch (command) {
    case IDOK: OnOk(page); break;
    case IDC_OPTIONS_SHOW_PERF_GRAPH:
    case IDC_OPTIONS_SHOW_TRAY_ICON:
    case IDC_OPTIONS_PERF_PHYS_MEM:
    case IDC_OPTIONS_PERF_CPU:
        ApplyEnablingRule(page);
        break;
    }
}

}  // namespace

INT_PTR CALLBACK TrayIconPageProc(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    return Procedure<OnInitDialog, OnCommand>(page, message, wParam, lParam);
}

}  // namespace lmvx
