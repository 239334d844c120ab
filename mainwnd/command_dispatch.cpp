#include "mainwnd/command_dispatch.h"

#include "app/option_keys.h"
#include "mainwnd/about_dialogs.h"
#include "mainwnd/command_dispatch_process.h"
#include "mainwnd/command_dispatch_system.h"
#include "mainwnd/command_dispatch_table.h"
#include "mainwnd/main_window_state.h"
#include "mainwnd/process_actions.h"
#include "options/options_dialog.h"
#include "finch.h"
#include "resource.h"
#include "run/run_dialog.h"
#include "wren.h"

namespace lmvx {
namespace {

bool IsTopmost(HWND window) {
    return (GetWindowLongPtrW(window, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0;
}

int ToggleOption(const BoolOption& option) {
    const int value = wren::regOptions.GetOptionBOOL(option.name, option.defaultValue) ? 0 : 1;
    wren::regOptions.SetOptionBOOL(option.name, value);
    return value;
}

void ToggleTopmost(const MainWindowState& state) {
    SetWindowPos(state.window, IsTopmost(state.window) ? HWND_NOTOPMOST : HWND_TOPMOST, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE);
    UpdateMainMenuChecks(state);
}

void ShowOrHideMainWindow(HWND window) {
    switch (ShowHideStepFor(IsWindowVisible(window) != FALSE, IsIconic(window) != FALSE)) {
    case ShowHideStep::Hide:
        ShowWindow(window, SW_HIDE);
        break;
    case ShowHideStep::ShowAndRestore:
        ShowWindow(window, SW_SHOW);
        ShowWindow(window, SW_RESTORE);
        break;
    case ShowHideStep::Show:
        ShowWindow(window, SW_SHOW);
        break;
    }
}

void ToggleStatusBarPart(const MainWindowState& state, const BoolOption& option) {
    ToggleOption(option);
    LayOutMainWindow(state.window, state.children);
    if (state.children.statusBar) InvalidateRect(state.children.statusBar, nullptr, TRUE);
}

void ToggleRequestElevation(const MainWindowState& state) {
    ToggleOption(options::RequestElevation);
    UpdateMainMenuChecks(state);
}

void OpenOptions(MainWindowState& state) {
    OptionsDialogHooks hooks;
    hooks.showTrayIcon = [&state](bool) { state.perfDisplays.tray.ApplyShowOption(); };
    hooks.restoreColumns = [&state] { state.processList.ResetColumnOrder(); };
    ShowOptionsDialog(state.window, hooks);
}

void RunCommandAction(MainWindowState& state, CommandAction action, unsigned commandId) {
    HWND window = state.window;
    switch (action) {
    case CommandAction::EndMainDialog: EndDialog(window, commandId); break;
    case CommandAction::PostToDetailsPane: ForwardToDetailsPane(state, commandId, false); break;
    case CommandAction::SendToDetailsPane: ForwardToDetailsPane(state, commandId, true); break;
    case CommandAction::BringWindowToFront: BringSelectedProcessWindowToFront(state); break;
    case CommandAction::CloseProcessWindow: CloseSelectedProcessWindow(state); break;
    case CommandAction::OpenHelp: OpenHelp(window); break;
    case CommandAction::OpenRunDialog: OpenRunDialog(window); break;
    case CommandAction::ShowAbout: ShowAboutBox(window); break;
    case CommandAction::OpenWebSite: OpenWebAddress(window, kWebSiteAddress); break;
    case CommandAction::OpenUpdatesPage: OpenWebAddress(window, UIL_LangModule.GetLangString(IDS_UPDATES_URL)); break;
    case CommandAction::Sort: state.processList.OnSortCommand(commandId); break;
    case CommandAction::RefreshRate: state.refreshCycle.OnRateCommand(commandId); break;
    case CommandAction::ToggleTopmost: ToggleTopmost(state); break;
    case CommandAction::ConfirmShutdown: ConfirmShutdown(window, commandId); break;
    case CommandAction::ShowOrHideMainWindow: ShowOrHideMainWindow(window); break;
    case CommandAction::ResumeAllProcesses: actions::ResumeAll(window); break;
    case CommandAction::StartSiblingTool: StartSiblingTool(window, commandId); break;
    case CommandAction::LanguageSettings: wren::LanguageSettingsDialog(window); break;
    case CommandAction::OpenOptions: OpenOptions(state); break;
    case CommandAction::ShowDialog277: ShowLimitedAccessDialog(window); break;
    case CommandAction::ToggleRequestElevation: ToggleRequestElevation(state); break;
    case CommandAction::TogglePerformanceGraph: ToggleOption(options::ShowTrayPerfWnd); break;
    case CommandAction::ToggleStatusBarCpu: ToggleStatusBarPart(state, options::StatusBarShowCPUPerf); break;
    case CommandAction::ToggleStatusBarMemory: ToggleStatusBarPart(state, options::StatusBarShowMemPerf); break;
    case CommandAction::Ignore: break;
    }
}

bool SelectionChanged(const NMLISTVIEW& change) {
    return (change.uChanged & LVIF_STATE) && ((change.uNewState ^ change.uOldState) & LVIS_SELECTED);
}

void OnSelectionChanged(MainWindowState& state) {
    if (state.refreshHooks.refreshDetailsViews) state.refreshHooks.refreshDetailsViews(state.processList.GetListView());
    RefreshProcessMenu(state);
}

}  // namespace

void DispatchCommand(MainWindowState& state, unsigned commandId) {
    RunCommandAction(state, ActionOfCommand(commandId), commandId);
}

bool DispatchListNotification(MainWindowState& state, const NMHDR& header) {
    switch (header.code) {
    case NM_RCLICK:
        ShowListContextMenu(state);
        return true;
    case NM_DBLCLK:
        ForwardToDetailsPane(state, IDM_PROPERTIES, false);
        return true;
    case LVN_ITEMCHANGED:
        if (SelectionChanged(reinterpret_cast<const NMLISTVIEW&>(header))) OnSelectionChanged(state);
        return true;
    case LVN_COLUMNCLICK:
        state.processList.OnHeaderClick(reinterpret_cast<const NMLISTVIEW&>(header).iSubItem);
        return true;
    default:
        return false;
    }
}

void UpdateMainMenuChecks(const MainWindowState& state) {
    HMENU menu = GetMenu(state.window);
    if (!menu) return;
    const auto& elevation = options::RequestElevation;
    const bool elevationRequested = wren::regOptions.GetOptionBOOL(elevation.name, elevation.defaultValue) != 0;
    CheckMenuItem(menu, IDM_KEEP_IN_FOREGROUND, MF_BYCOMMAND | (IsTopmost(state.window) ? MF_CHECKED : MF_UNCHECKED));
    CheckMenuItem(menu, IDM_TOGGLE_REQUEST_ELEVATION, MF_BYCOMMAND | (elevationRequested ? MF_CHECKED : MF_UNCHECKED));
}

}  // namespace lmvx
