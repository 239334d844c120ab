// The Threads page of the process properties window: the threads of the process with their CPU usage and
// start address, and one of three detail panes (performance, module, windows) for the selected thread.
#pragma once
#include <windows.h>

namespace lmvx {

// The page procedure; WM_INITDIALOG's lParam is the window's ProcessPropertiesContext.
INT_PTR CALLBACK ThreadsPageProc(HWND page, UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace lmvx
