// Process-wide state that start-up writes and the rest of the program reads.
#pragma once
#include <windows.h>

#include "kestrel.h"

namespace lmvx {

// Receives the start-up status texts. Nothing creates such a window today, so the texts go to a null
// handle; the steps stay in place so that a splash window can be attached by setting this one handle.
extern HWND g_statusWindow;
// 1 when SeDebugPrivilege was enabled at start-up; the main window and status bar read it.
extern int g_debugPrivilege;
// The one process-data provider of the program; Update() is called by the refresh thread only.
extern kestrel::TL_PROCESSLIST g_processList;

// The main window's start record: owner of the main dialog, show command, and the main window once it exists.
struct MainWindowStart {
    HWND owner = nullptr;
    int showCommand = SW_SHOWNORMAL;
    HWND mainWindow = nullptr;
};
extern MainWindowStart g_mainWindowStart;

// Start-up status step: shows the text in the status window (when there is one).
void ShowStartupStatus(const wchar_t* text);

}  // namespace lmvx
