// The main window's commands and list notifications: every menu, toolbar, tray and context-menu command
// arrives here and goes to the action the command table names.
#pragma once
#include <windows.h>
#include <commctrl.h>

namespace lmvx {

struct MainWindowState;

// WM_COMMAND (the low word of wParam).
void DispatchCommand(MainWindowState& state, unsigned commandId);

// WM_NOTIFY from the process list (control 5001): right click, double click, selection change, header click.
// True when the notification was handled.
bool DispatchListNotification(MainWindowState& state, const NMHDR& header);

// Check marks of the main menu that follow settings: "Keep Lumivex in Foreground", the elevation request.
void UpdateMainMenuChecks(const MainWindowState& state);

}  // namespace lmvx
