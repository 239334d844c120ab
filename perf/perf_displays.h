// The main window's performance displays together: notification-area icon, CPU and memory pop-ups and
// status bar. The main window keeps one of these, creates it during set-up and passes its messages by.
#pragma once
#include <windows.h>

#include "perf/perf_popup.h"
#include "perf/status_bar.h"
#include "perf/tray_icon.h"

namespace proclist {
struct RefreshHooks;
}

namespace lmvx::perf {

struct PerfDisplays {
    TrayIcon tray;
    PerfPopup cpuPopup;
    PerfPopup memoryPopup;
    StatusBarRecord statusBar;
};

// Set-up, on the UI thread: the tray icon (with the program's small icon, shown or removed by
// "ShowTrayIcon"), then the two pop-ups (hidden), then the status bar.
void CreateTrayIcon(PerfDisplays& displays, HWND mainWindow, HICON smallIcon);
void CreatePerfPopups(PerfDisplays& displays, HWND mainWindow);
void CreateStatusBar(PerfDisplays& displays, HWND mainWindow);
// The displays' parts of each refresh cycle: the sample with the tray picture between the counters and the
// graph points, the pop-ups after it, the status bar in the view refresh.
void AddPerfDisplayHooks(PerfDisplays& displays, proclist::RefreshHooks& hooks);

// Looks at every message of the main window. Returns true when the message was the displays' own and is
// fully handled; WM_SIZE, WM_MOVE, WM_TIMER and WM_NOTIFY are acted on and still passed on (false).
bool OnPerfDisplayMessage(PerfDisplays& displays, HWND mainWindow, UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace lmvx::perf
