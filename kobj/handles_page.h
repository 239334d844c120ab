// The "Handles" page of the process properties window: the process's handles with their type icons, kept
// current on the window's refresh timer.
#pragma once
#include <windows.h>

namespace lmvx::kobj {

// lParam of WM_INITDIALOG: the window's ProcessPropertiesContext.
INT_PTR CALLBACK HandlesPageProc(HWND page, UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace lmvx::kobj
