// The Options dialog: a tree of pages (Replace Task Manager, Tray Icon, Process List) with OK and Cancel.
#pragma once
#include <windows.h>

#include <functional>

namespace lmvx {

// What the pages change outside the option store, handed in by the main window.
struct OptionsDialogHooks {
    std::function<void(bool show)> showTrayIcon;   // on OK: show the tray icon, or remove it
    std::function<void()> restoreColumns;          // "Restore Columns": default column order at once
};

// Runs the dialog modally on the calling thread. The result is 1 for OK and Cancel alike.
INT_PTR ShowOptionsDialog(HWND owner, const OptionsDialogHooks& hooks);

INT_PTR CALLBACK OptionsFrameProc(HWND frame, UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace lmvx
