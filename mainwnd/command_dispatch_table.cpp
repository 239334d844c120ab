#include "mainwnd/command_dispatch_table.h"

#include "resource.h"

namespace lmvx {

CommandAction ActionOfCommand(unsigned commandId) {
    switch (commandId) {
    case IDM_EXIT:       // also IDCANCEL: Escape and the close box end the program
    case IDM_EXIT_ALT:
        return CommandAction::EndMainDialog;
    case IDM_TERMINATE_PROCESS:
    case IDM_RESUME_PROCESS:
    case IDM_OPEN_CONTAINING_FOLDER:
    case IDM_PAGE_OUT_PROCESS:
    case IDM_MEMORY_VIEWER:
    case IDM_NETWORK_CONNECTIONS:
    case IDM_RESTART_PROCESS:
    case IDM_PROPERTIES:
        return CommandAction::PostToDetailsPane;
    case IDM_PRIORITY_REALTIME:
    case IDM_PRIORITY_HIGH:
    case IDM_PRIORITY_ABOVE_NORMAL:
    case IDM_PRIORITY_NORMAL:
    case IDM_PRIORITY_BELOW_NORMAL:
    case IDM_PRIORITY_IDLE:
        return CommandAction::SendToDetailsPane;
    case IDM_BRING_TO_FRONT: return CommandAction::BringWindowToFront;
    case IDM_CLOSE_WINDOW: return CommandAction::CloseProcessWindow;
    case IDM_HELP: return CommandAction::OpenHelp;
    case IDM_RUN: return CommandAction::OpenRunDialog;
    case IDM_ABOUT: return CommandAction::ShowAbout;
    case IDM_WEBSITE: return CommandAction::OpenWebSite;
    case IDM_CHECK_UPDATES: return CommandAction::OpenUpdatesPage;
    case IDM_SORT_PROCESS_NAME:
    case IDM_SORT_PROCESS_ID:
    case IDM_SORT_CPU_USAGE:
    case IDM_SORT_MEMORY_USAGE:
    case IDM_SORT_DESCRIPTION:
    case IDM_SORT_COMPANY_NAME:
    case IDM_SORT_PATH_NAME:
    case IDM_SORT_PROCESS_TREE:
    case IDM_SORT_REVERSE:
    case IDM_SORT_START_ORDER:
    case IDM_SORT_USERNAME:
    case IDM_SORT_HANDLE_COUNT:
    case IDM_SORT_GDI_OBJECTS:
    case IDM_SORT_USER_OBJECTS:
        return CommandAction::Sort;
    case IDM_RATE_VERY_LOW:
    case IDM_RATE_LOW:
    case IDM_RATE_MEDIUM:
    case IDM_RATE_HIGH:
    case IDM_RATE_VERY_HIGH:
        return CommandAction::RefreshRate;
    case IDM_KEEP_IN_FOREGROUND: return CommandAction::ToggleTopmost;
    case IDM_REBOOT:
    case IDM_LOGOFF:
    case IDM_POWER_OFF:
        return CommandAction::ConfirmShutdown;
    case IDM_TRAY_SHOW_HIDE: return CommandAction::ShowOrHideMainWindow;
    case IDM_RESUME_ALL: return CommandAction::ResumeAllProcesses;
    case IDM_TOOL_PULSEWRIGHT:
    case IDM_TOOL_HEAPWRIGHT:
        return CommandAction::StartSiblingTool;
    case IDM_LANGUAGE_SETTINGS: return CommandAction::LanguageSettings;
    case IDM_OPTIONS: return CommandAction::OpenOptions;
    case IDM_SHOW_DIALOG_277: return CommandAction::ShowDialog277;
    case IDM_TOGGLE_REQUEST_ELEVATION: return CommandAction::ToggleRequestElevation;
    case IDM_SHOW_PERFORMANCE_GRAPH: return CommandAction::TogglePerformanceGraph;
    case IDM_STATUSBAR_SHOW_CPU: return CommandAction::ToggleStatusBarCpu;
    case IDM_STATUSBAR_SHOW_MEMORY: return CommandAction::ToggleStatusBarMemory;
    default:
        break;
    }
    // Kernel objects (1054) and every id above it are the details pane's own commands.
    return commandId >= IDM_KERNEL_OBJECTS ? CommandAction::PostToDetailsPane : CommandAction::Ignore;
}

std::optional<ShutdownConfirmation> ShutdownConfirmationOf(unsigned commandId) {
    switch (commandId) {
    case IDM_REBOOT: return ShutdownConfirmation{IDS_CONFIRM_REBOOT, EWX_REBOOT};
    case IDM_LOGOFF: return ShutdownConfirmation{IDS_CONFIRM_LOGOFF, EWX_LOGOFF};
    case IDM_POWER_OFF: return ShutdownConfirmation{IDS_CONFIRM_POWER_OFF, EWX_POWEROFF};
    default: return std::nullopt;
    }
}

std::optional<SiblingTool> SiblingToolOf(unsigned commandId) {
    switch (commandId) {
    case IDM_TOOL_PULSEWRIGHT: return SiblingTool{L"pulsewright64.exe", L"Pulsewright"};
    case IDM_TOOL_HEAPWRIGHT: return SiblingTool{L"heapwright64.exe", L"Heapwright"};
    default: return std::nullopt;
    }
}

ShowHideStep ShowHideStepFor(bool visible, bool minimised) {
    if (visible) return ShowHideStep::Hide;
    return minimised ? ShowHideStep::ShowAndRestore : ShowHideStep::Show;
}

}  // namespace lmvx
